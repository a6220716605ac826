#include "cli/Job.h"

#include <algorithm>

#include "base/CodePage.h"
#include "cli/BackupJob.h"
#include "cli/CompareJob.h"
#include "cli/RestoreAllJob.h"
#include "cli/TransferJob.h"
#include "platform/TextFile.h"

namespace korvex::cli {

FileKind* Workshop::kind(const std::string& name) const {
    const auto found = std::find_if(kinds.begin(), kinds.end(), [&](const FileKind& row) { return row.name == name; });
    return found == kinds.end() ? nullptr : &*found;
}

std::unique_ptr<Job> makeJob(const Workshop& workshop) {
    switch (workshop.command.verb) {
        case Command::Verb::Backup: return std::make_unique<BackupJob>(workshop);
        case Command::Verb::RestoreAll: return std::make_unique<RestoreAllJob>(workshop);
        case Command::Verb::Compare: return std::make_unique<CompareJob>(workshop);
        default: return std::make_unique<TransferJob>(workshop);
    }
}

Step saveStep(const FileKind& kind, const std::string& file) {
    return {kind.name, kind.save, file, false, true, {}};
}

Step restoreStep(const FileKind& kind, const std::string& file) {
    return {kind.name, kind.restore, file, true, true, {}};
}

Step readStep(const FileKind& kind, const std::string& file) {
    Step step = saveStep(kind, file);
    if (kind.save.gap) step.transfer.objection = kind.save.gap;
    return step;
}

std::optional<DataItems> readItems(const Workshop& workshop, const std::string& kind, const std::string& file) {
    const auto content = textfile::read(file);
    if (!content) {
        workshop.tell(content.error().text);
        return std::nullopt;
    }
    auto items = dataItems(kind, *content);
    if (items) return std::move(*items);
    workshop.tell(file + ": " + items.error().text);
    return std::nullopt;
}

void printCommands(std::ostream& out, const DataItems& items) {
    for (const auto& item : items) {
        if (!item.command.empty()) out << utf8FromWire(item.command) << "\n";
    }
}

}  // namespace korvex::cli
