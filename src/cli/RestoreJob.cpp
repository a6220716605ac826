#include "cli/RestoreJob.h"

#include "backup/RestoreFiles.h"
#include "base/CodePage.h"
#include "cli/RestoreReport.h"

namespace korvex::cli {

std::optional<ExitCode> RestoreJob::prepare() {
    const Command& command = m_workshop.command;
    m_restore.clear();
    if (!isWhole() && kindNamed(m_workshop, command.kind) == nullptr) return ExitCode::Usage;
    if (!takeFiles()) return ExitCode::File;
    RestoreChoices choices{command.writesAll, command.withCat, command.force, {}};
    if (command.dryRun) {
        static_cast<void>(m_restore.prepare(choices));  // keeps nothing, so nothing can fail
        for (const auto& item : m_restore.commands()) {
            if (!item.command.empty()) m_workshop.out << utf8FromWire(item.command) << "\n";
        }
        return ExitCode::Done;
    }
    if (!command.withoutSafetyCopy) {
        tellOfUnfinished(safetyFolder());
        choices.safetyCopy = BackupOrder{safetyFolder(), m_workshop.program.machine().timeOfDay(), "-before-restore"};
    }
    const auto failure = m_restore.prepare(choices);
    if (!failure) return std::nullopt;
    m_workshop.tell("the safety copy cannot be kept: " + failure->text +
                    "; --safety-copy DIR keeps it elsewhere, --no-safety-copy leaves it out");
    return ExitCode::File;
}

/// Every file is read before anything is sent.
bool RestoreJob::takeFiles() {
    const Command& command = m_workshop.command;
    FilesTaken taken;
    if (isWhole()) {
        taken = takeFolder(m_restore, command.file, m_workshop.program.machine().checksum);
    } else if (const auto text = m_workshop.files.read(command.file)) {
        takeContent(m_restore, *fileKind(command.kind), command.file, *text, taken);
    } else {
        taken.refusal = text.error().text;
    }
    for (const auto& note : taken.notes) m_workshop.note(note);
    for (const auto& doubt : taken.doubts) m_workshop.tell(doubt);
    if (!taken.refusal.empty()) m_workshop.tell(taken.refusal);
    if (!taken.refusal.empty() || taken.doubts.empty() || command.force) return taken.refusal.empty();
    m_workshop.tell("nothing was sent; --force restores what is there");
    return false;
}

/// Beside what is restored.
std::string RestoreJob::safetyFolder() const {
    const Command& command = m_workshop.command;
    if (command.safetyFolder) return *command.safetyFolder;
    return command.file == "-" ? "." : folderBeside(command.file);
}

void RestoreJob::tellOfUnfinished(const std::string& folder) const {
    for (const auto& copy : unfinishedRestores(folder)) {
        m_workshop.tell("an earlier restore did not come to its end; what the radio had before it is in " + copy);
    }
}

std::vector<Step> RestoreJob::steps() {
    m_planned = m_restore.planned.connect([this] { onPlanned(); });
    Step step{"restore", [this] { m_restore.begin(); }, &m_restore.ended};
    step.watchesTheRadio = true;
    step.why = [this] { return m_restore.why(); };
    return {step};
}

void RestoreJob::onPlanned() {
    if (const std::string date = backupDate(m_workshop.command.file); isWhole() && !date.empty()) {
        m_workshop.note("backup of " + date);
    }
    for (const auto& line : m_restore.planLines()) m_workshop.note(line);
    if (!m_restore.safetyCopy().empty() && m_restore.writesAnything()) {
        m_workshop.note("what the radio has now is kept in " + m_restore.safetyCopy());
    }
    m_restore.go();
}

ExitCode RestoreJob::conclude() {
    const bool asSaid = m_restore.isAsTheFilesSay();
    if (m_workshop.command.json) {
        printJson(m_workshop.out, m_restore, m_workshop.titles);
    } else if (!asSaid || !m_workshop.command.quiet) {
        printReport(m_workshop.out, m_restore.report(), m_workshop.titles, m_workshop.command.verify);
    }
    for (const auto& remark : m_restore.remarks()) m_workshop.tell(remark);
    return asSaid ? ExitCode::Done : ExitCode::Different;
}

/// What the radio holds now, when it was told to stop in the middle.
void RestoreJob::abandon() {
    const bool ran = m_restore.running();
    m_workshop.program.link.breakOff(Outcome::Kind::Cancelled);
    m_restore.stop();
    for (const auto& line : ran ? m_restore.why() : std::vector<std::string>()) m_workshop.tell(line);
    if (m_workshop.command.json) printJson(m_workshop.out, m_restore, m_workshop.titles);
}

}  // namespace korvex::cli
