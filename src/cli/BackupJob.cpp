#include "cli/BackupJob.h"

namespace korvex::cli {

std::optional<ExitCode> BackupJob::prepare() {
    const auto failure = m_backup.makeFolder(m_workshop.command.file, m_workshop.program.machine().timeOfDay());
    if (!failure) return std::nullopt;
    m_workshop.tell(failure->text);
    abandon();
    return ExitCode::File;
}

std::vector<Step> BackupJob::steps() {
    Transfer transfer;
    transfer.start = [this] {
        m_backup.read();
        return std::nullopt;
    };
    transfer.ended = &m_backup.ended;
    transfer.why = [this] { return m_backup.why(); };
    return {{"backup", transfer, {}, false, true, {}}};
}

ExitCode BackupJob::conclude() {
    m_workshop.out << m_backup.path() << "\n";
    return ExitCode::Done;
}

void BackupJob::abandon() {
    m_backup.stop();
    m_workshop.tell("no backup was made");
}

}  // namespace korvex::cli
