#include "menu/DescriptionExchange.h"

#include <algorithm>
#include <filesystem>
#include <utility>

#include "menu/DescriptionTable.h"
#include "menu/ShippedDescriptions.h"

namespace korvex {

namespace {

namespace fs = std::filesystem;

bool isThere(const std::string& file) {
    std::error_code ignored;
    return fs::symlink_status(file, ignored).type() != fs::file_type::not_found;
}

/// A name that is free: nothing that was put aside before is lost.
std::string nameOfCopy(const ImportOrder& order) {
    std::string stamp = order.timeOfDay;
    std::erase(stamp, ':');
    std::replace(stamp.begin(), stamp.end(), ' ', '-');
    const std::string name = order.database + ".before-import-" + stamp;
    std::string free = name;
    for (int more = 2; isThere(free); ++more) free = name + "-" + std::to_string(more);
    return free;
}

/// What was there before is put aside first; if that fails nothing is written.
Failure write(Database& database, const std::string& file, const DatabaseTable& table, const std::string& copy) {
    const std::string password(description::password);
    if (!copy.empty()) {
        if (auto failure = database.copyFile(file, password, copy)) return failure;
    }
    return database.writeTable(file, password, table);
}

std::string rows(std::size_t count) {
    return std::to_string(count) + (count == 1 ? " row" : " rows");
}

}  // namespace

Result<std::string> exportedDescriptions(Database& database, const std::string& databaseFile) {
    const auto table = readDescriptions(database, databaseFile);
    if (!table) return table.error();
    return descriptionText(*table);
}

Result<DescriptionsTaken> takeDescriptions(Database& database, ImportOrder order) {
    const bool isNew = !isThere(order.database);
    const auto present = isNew ? DatabaseTable() : readDescriptions(database, order.database);
    if (!present) return present.error();
    const bool withSettings =
        order.settings == TakeSettings::Yes ||
        (order.settings == TakeSettings::WhereThereAreNone && hasSettings(order.table) && !hasSettings(*present));
    DescriptionsTaken taken{importOver(*present, std::move(order.table), withSettings), false, withSettings, {}};
    taken.nothingNew = taken.import.table.records == present->records;
    if (taken.nothingNew) return taken;
    if (!isNew) taken.copy = nameOfCopy(order);
    if (auto failure = write(database, order.database, taken.import.table, taken.copy)) return *failure;
    return taken;
}

std::string inWords(const DescriptionsTaken& taken, const std::string& table, const std::string& database,
                    const std::string& aboutSettings) {
    if (taken.nothingNew) return table + ": nothing in it is new; " + database + " stays as it is\n";
    const DescriptionImport& import = taken.import;
    std::string text = table + ": " + rows(import.table.records.size()) + " taken, ";
    if (taken.copy.empty()) return text + database + " is new\n";
    text += std::to_string(import.changedCells) + (import.changedCells == 1 ? " cell" : " cells") + " changed in " +
            database + "\n";
    if (import.newRows > 0) text += rows(static_cast<std::size_t>(import.newRows)) + " were not there before\n";
    if (import.goneRows > 0) text += rows(static_cast<std::size_t>(import.goneRows)) + " are not there any more\n";
    if (!import.goneSettings.empty()) text += "gone with their settings: " + rowNames(import.goneSettings) + "\n";
    return text + (taken.settingsTaken ? "the settings columns were taken, too\n" : aboutSettings) +
           "as it was before: " + taken.copy + "\n";
}

}  // namespace korvex
