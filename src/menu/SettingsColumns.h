#pragma once

#include <string>
#include <vector>

#include "base/RuntimeError.h"
#include "platform/MSFlexGrid.h"

namespace korvex {

/// The settings columns of the Menu Manager's grid: from the eighth column to the third last, the four that its owner
/// reads into, edits and writes to the radio. Rows and columns are the grid's.

bool isSettingsColumn(const MSFlexGrid& grid, int column);
std::vector<int> settingsColumns(const MSFlexGrid& grid);
/// What the owner calls it; "Settings 2" for one without a title.
std::string columnName(const MSFlexGrid& grid, int column);
/// The column with this title; -1 for none.
int columnTitled(const MSFlexGrid& grid, const std::string& title);

/// The first row from `from` on whose number is the item's, "042"; -1 for none.
int rowOfItem(const MSFlexGrid& grid, const std::string& item, int from = 1);

/// For each of the items 001 to 149 the command that writes what the column holds, as wire text: "EX042050;", "EX042;"
/// for an empty cell, nothing for an item without a row. A cell that holds no value is the failure.
Result<std::vector<std::string>> commandsOf(const MSFlexGrid& grid, int column);

}  // namespace korvex
