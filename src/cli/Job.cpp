#include "cli/Job.h"

#include <algorithm>

#include "base/CodePage.h"
#include "cli/BackupJob.h"
#include "cli/CompareJob.h"
#include "cli/RestoreAllJob.h"
#include "cli/TransferJob.h"

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

Step restoreStep(const FileKind& kind, const std::string& text) {
    return {kind.name, kind.write(text), true, true, {}};
}

Step readStep(const FileKind& kind, const Transfer& reading, const std::function<void(std::string text)>& take) {
    return {kind.name, reading, false, true, [text = kind.text, take](const Outcome&) { take(text()); }};
}

std::optional<FileContent> readFile(const Workshop& workshop, const std::string& kind, const std::string& file) {
    auto text = workshop.files.read(file);
    auto items = text ? dataItems(kind, *text) : Result<DataItems>(text.error());
    if (items) return FileContent{std::move(*text), std::move(*items)};
    workshop.tell((text ? file + ": " : "") + items.error().text);
    return std::nullopt;
}

std::optional<DataItems> itemsRead(const Workshop& workshop, const std::string& kind, const std::string& text) {
    auto items = dataItems(kind, text);
    if (items) return std::move(*items);
    workshop.tell("what the radio told: " + items.error().text);
    return std::nullopt;
}

void printCommands(std::ostream& out, const DataItems& items) {
    for (const auto& item : items) {
        if (!item.command.empty()) out << utf8FromWire(item.command) << "\n";
    }
}

}  // namespace korvex::cli
