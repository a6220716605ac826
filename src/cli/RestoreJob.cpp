#include "cli/RestoreJob.h"

#include <filesystem>

#include "backup/BackupCheck.h"
#include "base/CodePage.h"
#include "cli/RestoreReport.h"

namespace korvex::cli {

namespace {

namespace fs = std::filesystem;

}  // namespace

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

bool RestoreJob::takeFiles() {
    if (isWhole()) return takeFolder();
    return takeFile(*fileKind(m_workshop.command.kind), m_workshop.command.file);
}

/// Every file is read before anything is sent.
bool RestoreJob::takeFolder() {
    const std::string& folder = m_workshop.command.file;
    if (!isIntact(folder)) return false;
    bool any = false;
    for (const auto& kind : fileKinds()) {
        if (kind.order == 0) continue;
        const std::string name = backupFileName(kind);
        std::error_code ignored;
        if (!fs::exists(folder + "/" + name, ignored)) {
            m_workshop.tell("there is no " + name + ": the radio keeps what it has");
            continue;
        }
        const auto items = itemsOfFile(m_workshop, kind, folder + "/" + name);
        if (!items) return false;
        if (!holdsAnything(kind, *items)) {
            m_workshop.tell(name + " holds nothing: the radio keeps what it has");
            continue;
        }
        if (!takeFile(kind, folder + "/" + name)) return false;
        any = true;
    }
    if (!any) m_workshop.tell(folder + " holds no file of a backup");
    return any;
}

bool RestoreJob::isIntact(const std::string& folder) const {
    const auto faults = backupFaults(folder, m_workshop.program.machine().checksum);
    for (const auto& fault : faults) m_workshop.tell(fault);
    if (faults.empty() || m_workshop.command.force) return true;
    m_workshop.tell("nothing was sent; --force restores it all the same");
    return false;
}

bool RestoreJob::takeFile(const FileKind& kind, const std::string& file) {
    const auto text = m_workshop.files.read(file);
    if (!text) {
        m_workshop.tell(text.error().text);
        return false;
    }
    if (const auto failure = m_restore.take(kind, *text)) {
        m_workshop.tell(file + ": " + failure->text);
        return false;
    }
    const auto items = kind.items(*text);
    if (!items || !holdsAnything(kind, *items)) {
        m_workshop.tell(file + ": there is nothing in it that could be restored as " + std::string(kind.name));
        return false;
    }
    const std::string lacks = kind.lacks(*text);
    if (lacks.empty() || m_workshop.command.force) return true;
    m_workshop.tell(file + ": " + lacks + "; --force restores what is there");
    return false;
}

/// Beside what is restored.
std::string RestoreJob::safetyFolder() const {
    const Command& command = m_workshop.command;
    if (command.safetyFolder) return *command.safetyFolder;
    if (command.file == "-") return ".";
    std::string path = command.file;
    while (path.size() > 1 && path.ends_with('/')) path.pop_back();
    const std::string parent = fs::path(path).parent_path().string();
    if (path == "." || path == "..") return path + "/..";
    return parent.empty() ? "." : parent;
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
        m_workshop.tell("backup of " + date);
    }
    for (const auto& line : m_restore.planLines()) m_workshop.tell(line);
    if (!m_restore.safetyCopy().empty() && m_restore.writesAnything()) {
        m_workshop.tell("what the radio has now is kept in " + m_restore.safetyCopy());
    }
    m_restore.go();
}

ExitCode RestoreJob::conclude() {
    const bool asSaid = m_restore.isAsTheFilesSay();
    if (m_workshop.command.json) {
        printJson(m_workshop.out, m_restore, m_workshop.titles);
    } else {
        printReport(m_workshop.out, m_restore.report(), m_workshop.titles, m_workshop.command.verify);
    }
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
