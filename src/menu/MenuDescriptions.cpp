#include "menu/MenuDescriptions.h"

#include <filesystem>
#include <utility>

#include "menu/DescriptionSource.h"
#include "menu/ShippedDescriptions.h"
#include "platform/TextFile.h"

namespace korvex {

namespace {

const std::string exportTitle = "Export Descriptions";
const std::string importTitle = "Import Descriptions";

std::string nameOf(const std::string& file) {
    return std::filesystem::path(file).filename().string();
}

}  // namespace

MenuDescriptions::MenuDescriptions(Database& database, DescriptionDatabase& descriptions, const OwnersDesk& desk,
                                   std::function<std::string()> timeOfDay, RunChildProgram runChildProgram)
    : m_database(database),
      m_descriptions(descriptions),
      m_files(desk, keys::descriptionsPath),
      m_timeOfDay(std::move(timeOfDay)),
      m_runChildProgram(std::move(runChildProgram)) {}

std::string MenuDescriptions::exportTable() {
    const auto text = exportedDescriptions(m_database, m_descriptions.file());
    if (!text) {
        m_files.msgBox().stop(text.error().text, exportTitle);
        return {};
    }
    const auto saved = m_files.write({exportTitle, "tsv"}, *text,
                                     [this](const RuntimeError& error) { m_files.tell(error, exportTitle); });
    if (!saved.file || saved.failure) return {};
    return "Descriptions exported to " + nameOf(*saved.file);
}

void MenuDescriptions::importTable() {
    const auto file = m_files.askToOpen({.title = importTitle, .ending = "tsv", .also = {"mdb", "accdb"}});
    if (!file) return;
    const auto taken = take(*file);
    if (!taken) {
        return m_files.msgBox().stop(
            nameOf(*file) + ", " + taken.error().text + ".\n\nThe descriptions are as they were.", importTitle);
    }
    m_files.remember(*file);
    show(*taken, nameOf(*file));
}

Result<DescriptionsTaken> MenuDescriptions::take(const std::string& file) {
    const auto content = textfile::read(file);
    if (!content) return content.error();
    auto source = descriptionsIn(m_database, m_runChildProgram, file, *content);
    if (!source) return source.error();
    auto settings = source->isDatabase ? TakeSettings::WhereThereAreNone : TakeSettings::No;
    const auto present = readDescriptions(m_database, m_descriptions.file());
    if (source->isDatabase && hasSettings(source->table) && present && hasSettings(*present) &&
        m_files.msgBox().confirm(
            nameOf(file) + " has settings columns, too. Take them in place of those that are saved here?",
            importTitle)) {
        settings = TakeSettings::Yes;
    }
    return takeDescriptions(m_database, {m_descriptions.file(), std::move(source->table), settings, m_timeOfDay()});
}

void MenuDescriptions::show(const DescriptionsTaken& taken, const std::string& table) {
    const auto gone = m_descriptions.loadKeepingEdits();
    std::string text =
        inWords(taken, table, nameOf(m_descriptions.file()),
                "the settings columns stay as they were (korvexctl's --with-settings takes them as well)\n");
    if (!gone.empty()) text += "unsaved settings whose rows are gone: " + rowNames(gone) + "\n";
    m_files.msgBox().show({text, importTitle, MsgIcon::Information});
}

}  // namespace korvex
