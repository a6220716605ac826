#include "menu/MenuDescriptions.h"

#include <filesystem>
#include <utility>

#include "menu/DescriptionTable.h"

namespace korvex {

namespace {

const std::string exportTitle = "Export Descriptions";
const std::string importTitle = "Import Descriptions";

std::string nameOf(const std::string& file) {
    return std::filesystem::path(file).filename().string();
}

}  // namespace

MenuDescriptions::MenuDescriptions(Database& database, DescriptionDatabase& descriptions, const OwnersDesk& desk,
                                   std::function<std::string()> timeOfDay)
    : m_database(database),
      m_descriptions(descriptions),
      m_files(desk, keys::descriptionsPath),
      m_timeOfDay(std::move(timeOfDay)) {}

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
    DescriptionsTaken taken;
    const auto take = [&](const std::string& content) -> Failure {
        auto table = parseDescription(content);
        if (!table) return table.error();
        auto result = takeDescriptions(m_database, {m_descriptions.file(), std::move(*table), false, m_timeOfDay()});
        if (!result) return result.error();
        taken = std::move(*result);
        return {};
    };
    const auto read = m_files.read({importTitle, "tsv"}, take);
    if (read.failure) {
        m_files.msgBox().stop(
            nameOf(*read.file) + ", " + read.failure->text + ".\n\nThe descriptions are as they were.", importTitle);
    } else if (read.file) {
        show(taken, nameOf(*read.file));
    }
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
