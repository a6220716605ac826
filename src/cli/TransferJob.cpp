#include "cli/TransferJob.h"

#include "cli/Verification.h"

namespace korvex::cli {

std::optional<ExitCode> TransferJob::prepare() {
    const Command& command = m_workshop.command;
    if (m_workshop.kind(command.kind) == nullptr) {
        m_workshop.tell("there is no kind of file called " + command.kind);
        return ExitCode::Usage;
    }
    if (!restores() || (!command.verify && !command.dryRun)) return std::nullopt;
    m_wanted = readItems(m_workshop, command.kind, command.file);
    if (!m_wanted) return ExitCode::File;
    if (!command.dryRun) return std::nullopt;
    printCommands(m_workshop.out, *m_wanted);
    return ExitCode::Done;
}

std::vector<Step> TransferJob::steps() {
    const Command& command = m_workshop.command;
    const FileKind& kind = *m_workshop.kind(command.kind);
    if (!restores()) return {saveStep(kind, command.file)};
    if (!m_wanted) return {restoreStep(kind, command.file)};
    Step restore = restoreStep(kind, command.file);
    restore.refusalsAreTold = false;
    restore.after = [this](const WriteRecord& record) { m_refused = record.refused(); };
    return {restore, readStep(kind, m_scratch.file(command.kind))};
}

ExitCode TransferJob::conclude() {
    if (!m_wanted) return ExitCode::Done;
    const std::string& kind = m_workshop.command.kind;
    const auto found = readItems(m_workshop, kind, m_scratch.file(kind));
    if (!found) return ExitCode::File;
    const bool took = reportWritten(m_workshop.out, {kind, *m_wanted, *found, m_refused}, m_workshop.titles);
    return took ? ExitCode::Done : ExitCode::Different;
}

}  // namespace korvex::cli
