#include "cli/RestoreAllJob.h"

#include <array>
#include <filesystem>

#include "app/BackupFolder.h"
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
    for (const auto& part : m_parts) printCommands(m_workshop.out, part.items);
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
    auto items = readItems(m_workshop, name, file);
    if (!items) return false;
    if (const std::string why = whyNotRestorable(name, *items); !why.empty()) {
        m_workshop.tell(file + ": " + why);
        return false;
    }
    if (name == "menu" && !takeMenu(file, *items)) return false;
    m_parts.push_back({kind, file, name == "menu" ? m_menu.items() : std::move(*items), {}});
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
    Step restore = part.kind->name == "menu" ? m_menu.itemsStep(*part.kind, m_workshop.program, part.file)
                                             : restoreStep(*part.kind, part.file);
    restore.refusalsAreTold = !verifies;
    restore.after = [this, &part](const WriteRecord& record) {
        part.refused = record.refused();
        m_finished.push_back(part.kind->name);
    };
    steps.push_back(restore);
    if (verifies) steps.push_back(readStep(*part.kind, m_scratch.file(backupFileName(part.kind->name))));
}

ExitCode RestoreAllJob::conclude() {
    if (!m_menu.catItems().empty() && !m_workshop.command.withCat) {
        m_workshop.tell(catSettingsLeft);
    }
    if (!m_workshop.command.verify) return ExitCode::Done;
    bool took = true;
    for (const auto& part : m_parts) {
        const auto found = readItems(m_workshop, part.kind->name, m_scratch.file(backupFileName(part.kind->name)));
        if (!found) return ExitCode::File;
        took = reportWritten(m_workshop.out, {part.kind->name, part.items, *found, part.refused}, m_workshop.titles) &&
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
