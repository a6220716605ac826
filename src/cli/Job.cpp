#include "cli/Job.h"

#include "cli/BackupJob.h"
#include "cli/CompareJob.h"
#include "cli/ConvertJob.h"
#include "cli/DoctorJob.h"
#include "cli/RestoreJob.h"
#include "cli/SaveJob.h"
#include "cli/ShareJob.h"

namespace korvex::cli {

std::unique_ptr<Job> makeJob(const Workshop& workshop) {
    switch (workshop.command.verb) {
        case Command::Verb::Backup: return std::make_unique<BackupJob>(workshop);
        case Command::Verb::Compare: return std::make_unique<CompareJob>(workshop);
        case Command::Verb::Convert: return std::make_unique<ConvertJob>(workshop);
        case Command::Verb::Doctor: return std::make_unique<DoctorJob>(workshop);
        case Command::Verb::Save: return std::make_unique<SaveJob>(workshop);
        case Command::Verb::Share: return std::make_unique<ShareJob>(workshop);
        default: return std::make_unique<RestoreJob>(workshop);
    }
}

const FileKind* kindNamed(const Workshop& workshop, const std::string& name) {
    const FileKind* kind = fileKind(name);
    if (kind == nullptr) workshop.tell("there is no kind of file called " + name + "; there are " + kindNames());
    return kind;
}

Step readStep(const Workshop& workshop, const FileKind& kind, const std::function<void(std::string text)>& take) {
    const KindTransfers& transfers = workshop.program.transfers;
    const KindReading& reading = transfers.reading(kind);
    Step step{std::string(kind.name), reading.start, reading.ended};
    step.objection = reading.objection;
    step.after = [&transfers, &kind, take] { take(transfers.file(kind).content); };
    return step;
}

std::optional<DataItems> itemsOfFile(const Workshop& workshop, const FileKind& kind, const std::string& file) {
    auto text = workshop.files.read(file);
    auto items = text ? kind.items(*text) : Result<DataItems>(text.error());
    if (items) return std::move(*items);
    workshop.tell((text ? file + ": " : "") + items.error().text);
    return std::nullopt;
}

}  // namespace korvex::cli
