#include "cli/RestoreAllJob.h"

#include <algorithm>
#include <array>
#include <filesystem>

#include "app/BackupFolder.h"
#include "base/Lines.h"
#include "cli/Restorable.h"
#include "cli/Verification.h"
#include "menu/MenuCommandTable.h"
#include "menu/MenuFile.h"
#include "platform/TextFile.h"

namespace korvex::cli {

namespace {

/// The menu first: it decides what a keyer memory may hold.
constexpr std::array<const char*, 4> order = {"menu", "memory", "bandstack", "keyer"};

}  // namespace

RestoreAllJob::RestoreAllJob(Workshop workshop)
    : m_workshop(std::move(workshop)), m_sender(m_workshop.program.link, m_workshop.program.machine().clock) {}

std::optional<ExitCode> RestoreAllJob::prepare() {
    if (const auto code = takeParts()) return code;
    if (!m_workshop.command.dryRun) return std::nullopt;
    for (const auto& part : m_parts) printCommands(m_workshop.out, part.items);
    if (m_workshop.command.withCat) printCommands(m_workshop.out, m_catItems);
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
    Part part{kind, file, std::move(*items), {}};
    if (name == "menu") {
        if (const auto failure = separateCatLines(part)) {
            m_workshop.tell(failure->text);
            return false;
        }
    }
    m_parts.push_back(std::move(part));
    return true;
}

/// What is written is a copy of the menu file without the CAT items and without what the saved radio refused to tell.
Failure RestoreAllJob::separateCatLines(Part& menu) {
    DataItems kept;
    std::string text;
    for (auto& item : menu.items) {
        if (wasRefused(item)) continue;
        auto& target = setsCatLine(item.command) ? m_catItems : kept;
        target.push_back(std::move(item));
    }
    for (const auto& item : kept) text.append(item.command).append(crLf);
    // The writer sends as many lines as there are items; the others are to be empty.
    for (std::size_t lines = kept.size(); lines < std::size_t{menuItemCount}; ++lines) text += crLf;
    menu.items = std::move(kept);
    menu.file = m_scratch.file("menu");
    return textfile::write(menu.file, text);
}

std::vector<Step> RestoreAllJob::steps() {
    std::vector<Step> steps;
    for (auto& part : m_parts) addSteps(steps, part);
    if (m_workshop.command.withCat && !m_catItems.empty()) steps.push_back(catStep());
    return steps;
}

void RestoreAllJob::addSteps(std::vector<Step>& steps, Part& part) {
    const bool verifies = m_workshop.command.verify;
    Step restore = restoreStep(*part.kind, part.file);
    restore.refusalsAreTold = !verifies;
    restore.after = [this, &part](const WriteRecord& record) {
        part.refused = record.refused();
        m_finished.push_back(part.kind->name);
    };
    steps.push_back(restore);
    if (verifies) steps.push_back(readStep(*part.kind, m_scratch.file(backupFileName(part.kind->name))));
}

/// Time-out and RTS, then the speed: the radio hears nothing more behind that.
Step RestoreAllJob::catStep() {
    std::vector<std::string> commands;
    for (const auto& item : m_catItems) commands.push_back(item.command);
    std::stable_partition(commands.begin(), commands.end(),
                          [](const std::string& command) { return command.find("028") == std::string::npos; });
    Transfer transfer;
    transfer.start = [this, commands] {
        m_sender.send(commands);
        return std::nullopt;
    };
    transfer.ended = &m_sender.ended;
    return {"CAT settings", transfer, {}, true, true, {}};
}

ExitCode RestoreAllJob::conclude() {
    if (!m_catItems.empty() && !m_workshop.command.withCat) {
        m_workshop.tell("the CAT settings (menu items 028 to 030) were left as they are; --with-cat writes them too");
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
