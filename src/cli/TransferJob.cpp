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
    std::string why = whyNotRestorable(command.kind, *items);
    if (!holdsAnything(command.kind, *items)) why = "there is nothing in it that could be restored as " + command.kind;
    if (why.empty()) {
        m_wanted = std::move(*items);
        return std::nullopt;
    }
    m_workshop.tell(command.file + ": " + why);
    return ExitCode::File;
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
    Step restore = restoreStep(kind, m_file);
    if (!command.verify) return {restore};
    restore.refusalsAreTold = false;
    restore.after = [this](const WriteRecord& record) { m_refused = record.refused(); };
    return {restore, readStep(kind, m_scratch.file(command.kind))};
}

ExitCode TransferJob::conclude() {
    if (!m_workshop.command.verify) return ExitCode::Done;
    const std::string& kind = m_workshop.command.kind;
    const auto found = readItems(m_workshop, kind, m_scratch.file(kind));
    if (!found) return ExitCode::File;
    const bool took = reportWritten(m_workshop.out, {kind, m_wanted, *found, m_refused}, m_workshop.titles);
    return took ? ExitCode::Done : ExitCode::Different;
}

}  // namespace korvex::cli
