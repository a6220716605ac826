#include "cli/TransferJob.h"

#include <filesystem>

#include "cli/Restorable.h"
#include "cli/Verification.h"

namespace korvex::cli {

std::optional<ExitCode> TransferJob::prepare() {
    const Command& command = m_workshop.command;
    if (m_workshop.kind(command.kind) == nullptr) {
        m_workshop.tell("there is no kind of file called " + command.kind);
        return ExitCode::Usage;
    }
    if (const auto code = restores() ? takeFile() : checkTarget()) return code;
    if (!command.dryRun) return std::nullopt;
    printCommands(m_workshop.out, m_wanted.items);
    if (command.withCat) printCommands(m_workshop.out, m_menu.catItems());
    return ExitCode::Done;
}

/// A target that cannot be written is told before the radio is read for minutes.
std::optional<ExitCode> TransferJob::checkTarget() {
    const auto failure = Files::whyNotWritable(m_workshop.command.file);
    if (!failure) return std::nullopt;
    m_workshop.tell(failure->text);
    return ExitCode::File;
}

std::optional<ExitCode> TransferJob::takeFile() {
    const Command& command = m_workshop.command;
    auto content = readFile(m_workshop, command.kind, command.file);
    if (!content) return ExitCode::File;
    if (const std::string why = whyNotTaken(*content); !why.empty()) {
        m_workshop.tell(command.file + ": " + why);
        return ExitCode::File;
    }
    if (isMenu()) content->items = m_menu.items();
    m_wanted = std::move(*content);
    return std::nullopt;
}

std::string TransferJob::whyNotTaken(const FileContent& content) {
    const Command& command = m_workshop.command;
    if (!holdsAnything(command.kind, content.items)) {
        return "there is nothing in it that could be restored as " + command.kind;
    }
    if (isMenu()) m_menu.take(content.items);
    if (isMenu() && !command.force) return m_menu.whyIncomplete();
    if (command.kind == "bandstack" && !command.force) return whyBandStackIncomplete(content.text);
    return whyNotRestorable(command.kind, content.items);
}

std::vector<Step> TransferJob::steps() {
    const FileKind& kind = *m_workshop.kind(m_workshop.command.kind);
    const auto keep = [this](std::string text) { m_read = std::move(text); };
    if (!restores()) return {readStep(kind, kind.readWhole, keep)};
    Step restore = isMenu() ? m_menu.itemsStep(m_workshop.program) : restoreStep(kind, m_wanted.text);
    std::vector<Step> steps = {restore};
    if (m_workshop.command.verify) {
        steps.front().refusalsAreTold = false;
        steps.front().after = [this](const Outcome& outcome) { m_refused = outcome.refused; };
        steps.push_back(readStep(kind, kind.read, keep));
    }
    if (m_workshop.command.withCat && !m_menu.catItems().empty()) steps.push_back(m_menu.catStep(m_workshop.program));
    return steps;
}

ExitCode TransferJob::conclude() {
    if (!restores()) return save();
    if (!m_menu.catItems().empty() && !m_workshop.command.withCat) m_workshop.tell(catSettingsLeft);
    return m_workshop.command.verify ? report() : ExitCode::Done;
}

ExitCode TransferJob::save() {
    const std::string& file = m_workshop.command.file;
    if (wouldEmptyTarget()) {
        m_workshop.tell("the radio told nothing, and " + file + " holds something; nothing was written");
        return ExitCode::Answers;
    }
    if (const auto failure = m_workshop.files.write(file, m_read)) {
        m_workshop.tell(failure->text);
        return ExitCode::File;
    }
    const auto& remarks = m_workshop.kind(m_workshop.command.kind)->readWhole.remarks;
    for (const auto& remark : remarks ? remarks() : std::vector<std::string>()) m_workshop.tell(remark);
    return ExitCode::Done;
}

/// A radio that is busy refuses to tell a channel as it does when the channel is empty.
bool TransferJob::wouldEmptyTarget() const {
    const Command& command = m_workshop.command;
    std::error_code ignored;
    if (!std::filesystem::is_regular_file(command.file, ignored)) return false;
    const auto holdsItems = [&command](const Result<std::string>& text) {
        const auto items = text ? dataItems(command.kind, *text) : Result<DataItems>(text.error());
        return items && holdsAnything(command.kind, *items);
    };
    return !holdsItems(m_read) && holdsItems(m_workshop.files.read(command.file));
}

ExitCode TransferJob::report() {
    const std::string& kind = m_workshop.command.kind;
    const auto found = itemsRead(m_workshop, kind, m_read);
    if (!found) return ExitCode::Answers;
    const bool took = reportWritten(m_workshop.out, {kind, m_wanted.items, *found, m_refused}, m_workshop.titles);
    return took ? ExitCode::Done : ExitCode::Different;
}

}  // namespace korvex::cli
