#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/Database.h"

namespace korvex {

/// Two states of the description table in one. Rows are brought together by the menu item that they belong to
/// (rowKeys), never by where they stand.

/// The keys of a table's records, as far as the Menu Manager shows them.
std::vector<std::string> rowKeys(const DatabaseTable& table);

/// "the titles, 042, 043+1": for a person.
std::string rowNames(const std::vector<std::string>& keys);

/// Whether a row other than the titles' holds settings.
bool hasSettings(const DatabaseTable& table);

/// What an imported table makes of the present one.
struct DescriptionImport {
    DatabaseTable table;
    int changedCells = 0;
    int newRows = 0;
    int goneRows = 0;
    std::vector<std::string> goneSettings;  ///< keys of rows that are gone and held settings
};

/// The settings columns stay as they are, except in a table that has no rows yet; with `withSettings` they are the
/// imported ones, but a number that a spreadsheet has only taken the zeros or the plus off stays ("300" of "0300").
DescriptionImport importOver(const DatabaseTable& present, DatabaseTable imported, bool withSettings);

struct FilledCell {
    int record = 0;  ///< from 1
    int field = 0;
    std::string text;
};

/// What the shipped table has to say where the owner's says nothing; never in the settings columns.
std::vector<FilledCell> cellsToFill(const DatabaseTable& own, const DatabaseTable& shipped);

/// The saved columns of each row, by its key.
using SettingsRows = std::map<std::string, std::vector<std::string>>;

struct SettingsMerge {
    SettingsRows rows;                 ///< as they are to be in the file
    std::vector<std::string> clashes;  ///< keys of rows with a cell that both sides have changed
    std::vector<std::string> gone;     ///< keys of rows that were changed here and are in the file no more
};

/// `base` is what both sides began with: a cell that was not changed here is left to the file.
SettingsMerge mergeSettings(const SettingsRows& base, const SettingsRows& mine, const SettingsRows& file);

}  // namespace korvex
