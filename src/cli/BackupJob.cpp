#include "cli/BackupJob.h"

namespace korvex::cli {

std::optional<ExitCode> BackupJob::prepare() {
    const auto failure = m_backup.makeFolder({m_workshop.command.file, m_workshop.program.machine().timeOfDay()});
    if (!failure) return std::nullopt;
    m_workshop.tell(failure->text);
    abandon();
    return ExitCode::File;
}

std::vector<Step> BackupJob::steps() {
    Step step{"backup", [this] { m_backup.read(); }, &m_backup.ended};
    step.watchesTheRadio = true;
    step.why = [this] { return std::vector{m_backup.why()}; };
    return {step};
}

ExitCode BackupJob::conclude() {
    m_workshop.out << m_backup.path() << "\n";
    const auto missing = missingLines(m_backup.summary());
    if (missing.empty()) return ExitCode::Done;
    m_workshop.tell("the backup is not complete: summary.txt names what the radio refused to tell (" +
                    std::to_string(missing.size()) + ")");
    return ExitCode::Answers;
}

void BackupJob::abandon() {
    m_backup.stop();
    m_workshop.tell("no backup was made");
}

}  // namespace korvex::cli
