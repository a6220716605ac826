#include "cli/BackupJob.h"

#include <filesystem>

namespace korvex::cli {

std::optional<ExitCode> BackupJob::prepare() {
    const std::string now = m_workshop.program.machine().timeOfDay();
    const auto failure = m_workshop.command.resume ? takeUp(now) : m_backup.makeFolder({m_workshop.command.file, now});
    if (!failure) return std::nullopt;
    m_workshop.tell(failure->text);
    abandon();
    return ExitCode::File;
}

/// The last one, where DIR has several.
Failure BackupJob::takeUp(const std::string& timeOfDay) {
    std::string folder = std::filesystem::path(m_workshop.command.file + "/").lexically_normal().parent_path().string();
    if (const auto found = unfinishedBackups(folder); !found.empty()) folder = found.back();
    if (!folder.ends_with(incompleteEnding)) {
        return RuntimeError{errors::PathNotFound, "there is no unfinished backup in " + m_workshop.command.file};
    }
    m_workshop.tell("going on with " + folder);
    return m_backup.takeUp(folder, timeOfDay);
}

std::vector<Step> BackupJob::steps() {
    Step step{"backup", [this] { m_backup.read(); }, &m_backup.ended};
    step.watchesTheRadio = true;
    step.why = [this] { return std::vector{m_backup.why()}; };
    return {step};
}

ExitCode BackupJob::conclude() {
    m_workshop.out << m_backup.path() << "\n";
    for (const auto& remark : m_backup.summary().remarks) m_workshop.tell(remark);
    const auto missing = missingLines(m_backup.summary());
    if (missing.empty()) return ExitCode::Done;
    m_workshop.tell("the backup is not complete: summary.txt names what the radio refused to tell (" +
                    std::to_string(missing.size()) + ")");
    return ExitCode::Answers;
}

void BackupJob::abandon() {
    m_backup.stop();
    if (m_backup.unfinished().empty()) return m_workshop.tell("no backup was made");
    m_workshop.tell("what was read is kept in " + m_backup.unfinished() +
                    "; the same command with --resume goes on with it");
}

}  // namespace korvex::cli
