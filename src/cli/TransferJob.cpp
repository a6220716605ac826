#include "cli/TransferJob.h"

#include <filesystem>

#include "cli/Restorable.h"
#include "cli/Verification.h"
#include "platform/TextFile.h"

namespace korvex::cli {

std::optional<ExitCode> TransferJob::prepare() {
    const Command& command = m_workshop.command;
    if (m_workshop.kind(command.kind) == nullptr) {
        m_workshop.tell("there is no kind of file called " + command.kind);
        return ExitCode::Usage;
    }
    if (const auto code = restores() ? takeFile() : checkTarget()) return code;
    if (!command.dryRun) return std::nullopt;
    printCommands(m_workshop.out, m_wanted);
    if (command.withCat) printCommands(m_workshop.out, m_menu.catItems());
    return ExitCode::Done;
}

/// A target that cannot be written is told before the radio is read for minutes.
std::optional<ExitCode> TransferJob::checkTarget() {
    const auto failure = textfile::whyNotWritable(m_workshop.command.file);
    if (!failure) return std::nullopt;
    m_workshop.tell(failure->text);
    return ExitCode::File;
}

std::optional<ExitCode> TransferJob::takeFile() {
    const Command& command = m_workshop.command;
    m_file = command.file;
    if (const auto failure = keepStream()) {
        m_workshop.tell(failure->text);
        return ExitCode::File;
    }
    auto items = readItems(m_workshop, command.kind, m_file);
    if (!items) return ExitCode::File;
    if (const std::string why = whyNotTaken(*items); !why.empty()) {
        m_workshop.tell(command.file + ": " + why);
        return ExitCode::File;
    }
    m_wanted = isMenu() ? m_menu.items() : std::move(*items);
    return std::nullopt;
}

std::string TransferJob::whyNotTaken(const DataItems& items) {
    const std::string& kind = m_workshop.command.kind;
    if (!holdsAnything(kind, items)) return "there is nothing in it that could be restored as " + kind;
    if (!isMenu()) return whyNotRestorable(kind, items);
    m_menu.take(items);
    return m_workshop.command.force ? std::string() : m_menu.whyIncomplete();
}

/// "/dev/stdin" can be read once, and a file is read several times.
Failure TransferJob::keepStream() {
    std::error_code ignored;
    if (!std::filesystem::exists(m_file, ignored) || std::filesystem::is_regular_file(m_file, ignored)) return {};
    const auto content = textfile::read(m_file);
    if (!content) return content.error();
    m_file = m_scratch.file("given");
    return textfile::write(m_file, *content);
}

std::vector<Step> TransferJob::steps() {
    const Command& command = m_workshop.command;
    const FileKind& kind = *m_workshop.kind(command.kind);
    if (!restores()) return {saveStep(kind, command.file)};
    Step restore = isMenu() ? m_menu.itemsStep(kind, m_workshop.program, m_file) : restoreStep(kind, m_file);
    std::vector<Step> steps;
    if (command.verify) {
        restore.refusalsAreTold = false;
        restore.after = [this](const WriteRecord& record) { m_refused = record.refused(); };
        steps = {restore, readStep(kind, m_scratch.file(command.kind))};
    } else {
        steps = {restore};
    }
    if (command.withCat && !m_menu.catItems().empty()) steps.push_back(m_menu.catStep(m_workshop.program));
    return steps;
}

ExitCode TransferJob::conclude() {
    if (!m_menu.catItems().empty() && !m_workshop.command.withCat) m_workshop.tell(catSettingsLeft);
    if (!m_workshop.command.verify) return ExitCode::Done;
    const std::string& kind = m_workshop.command.kind;
    const auto found = readItems(m_workshop, kind, m_scratch.file(kind));
    if (!found) return ExitCode::File;
    const bool took = reportWritten(m_workshop.out, {kind, m_wanted, *found, m_refused}, m_workshop.titles);
    return took ? ExitCode::Done : ExitCode::Different;
}

}  // namespace korvex::cli
