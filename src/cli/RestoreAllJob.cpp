#include "cli/RestoreAllJob.h"

#include <array>
#include <filesystem>

#include "backup/BackupFolder.h"
#include "cli/Restorable.h"
#include "cli/Verification.h"

namespace korvex::cli {

namespace {

/// The menu first: it decides what a keyer memory may hold.
constexpr std::array<const char*, 4> order = {"menu", "memory", "bandstack", "keyer"};

}  // namespace

std::optional<ExitCode> RestoreAllJob::prepare() {
    if (const auto code = takeParts()) return code;
    if (!m_workshop.command.dryRun) return std::nullopt;
    for (const auto& part : m_parts) printCommands(m_workshop.out, part.wanted.items);
    if (m_workshop.command.withCat) printCommands(m_workshop.out, m_menu.catItems());
    return ExitCode::Done;
}

/// Every file is read before anything is sent.
std::optional<ExitCode> RestoreAllJob::takeParts() {
    for (const char* name : order) {
        if (!takePart(name)) return ExitCode::File;
    }
    if (!m_parts.empty()) return std::nullopt;
    m_workshop.tell(m_workshop.command.file + " holds no file of a backup");
    return ExitCode::File;
}

bool RestoreAllJob::takePart(const std::string& name) {
    const FileKind* kind = m_workshop.kind(name);
    const std::string file = m_workshop.command.file + "/" + backupFileName(name);
    std::error_code ignored;
    if (!std::filesystem::exists(file, ignored)) {
        m_workshop.tell("there is no " + backupFileName(name) + ": the radio keeps what it has");
        return true;
    }
    auto content = readFile(m_workshop, name, file);
    if (!content) return false;
    std::string why = whyNotRestorable(name, content->items);
    if (name == "bandstack" && !m_workshop.command.force) why = whyBandStackIncomplete(content->text);
    if (!why.empty()) {
        m_workshop.tell(file + ": " + why);
        return false;
    }
    if (name == "menu" && !takeMenu(file, content->items)) return false;
    if (name == "menu") content->items = m_menu.items();
    m_parts.push_back({kind, std::move(*content), {}, {}});
    return true;
}

bool RestoreAllJob::takeMenu(const std::string& file, const DataItems& items) {
    m_menu.take(items);
    const std::string why = m_menu.whyIncomplete();
    if (why.empty() || m_workshop.command.force) return true;
    m_workshop.tell(file + ": " + why);
    return false;
}

std::vector<Step> RestoreAllJob::steps() {
    std::vector<Step> steps;
    for (auto& part : m_parts) addSteps(steps, part);
    if (m_workshop.command.withCat && !m_menu.catItems().empty()) steps.push_back(m_menu.catStep(m_workshop.program));
    return steps;
}

void RestoreAllJob::addSteps(std::vector<Step>& steps, Part& part) {
    const bool verifies = m_workshop.command.verify;
    Step restore =
        part.kind->name == "menu" ? m_menu.itemsStep(m_workshop.program) : restoreStep(*part.kind, part.wanted.text);
    restore.refusalsAreTold = !verifies;
    restore.after = [this, &part](const Outcome& outcome) {
        part.refused = outcome.refused;
        m_finished.push_back(part.kind->name);
    };
    steps.push_back(restore);
    const auto keep = [&part](std::string text) { part.found = std::move(text); };
    if (verifies) steps.push_back(readStep(*part.kind, part.kind->read, keep));
}

ExitCode RestoreAllJob::conclude() {
    if (!m_menu.catItems().empty() && !m_workshop.command.withCat) {
        m_workshop.tell(catSettingsLeft);
    }
    if (!m_workshop.command.verify) return ExitCode::Done;
    bool took = true;
    for (const auto& part : m_parts) {
        const auto found = itemsRead(m_workshop, part.kind->name, part.found);
        if (!found) return ExitCode::Answers;
        took = reportWritten(m_workshop.out, {part.kind->name, part.wanted.items, *found, part.refused},
                             m_workshop.titles) &&
               took;
    }
    return took ? ExitCode::Done : ExitCode::Different;
}

void RestoreAllJob::abandon() {
    std::string names;
    for (const auto& name : m_finished) names += " " + name;
    m_workshop.tell("written before that:" + (names.empty() ? std::string(" nothing as a whole") : names));
}

}  // namespace korvex::cli
