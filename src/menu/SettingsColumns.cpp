#include "menu/SettingsColumns.h"

#include "base/NumberText.h"
#include "menu/MenuCommandTable.h"

namespace korvex {

namespace {

constexpr int firstSettingsColumn = 7;
constexpr int columnsAfterSettings = 3;  // the last settings column is the number of columns less this

}  // namespace

bool isSettingsColumn(const MSFlexGrid& grid, int column) {
    return column >= firstSettingsColumn && column <= grid.Cols() - columnsAfterSettings;
}

std::vector<int> settingsColumns(const MSFlexGrid& grid) {
    std::vector<int> columns;
    for (int column = firstSettingsColumn; isSettingsColumn(grid, column); ++column) columns.push_back(column);
    return columns;
}

std::string columnName(const MSFlexGrid& grid, int column) {
    const std::string& title = grid.TextMatrix(0, column);
    return title.empty() ? "Settings " + std::to_string(column - firstSettingsColumn + 1) : title;
}

int columnTitled(const MSFlexGrid& grid, const std::string& title) {
    for (int column = 0; column < grid.Cols(); ++column) {
        if (grid.TextMatrix(0, column) == title) return column;
    }
    return -1;
}

int rowOfItem(const MSFlexGrid& grid, const std::string& item, int from) {
    for (int row = from; row < grid.Rows(); ++row) {
        if (grid.TextMatrix(row, 0) == item) return row;
    }
    return -1;
}

Result<std::vector<std::string>> commandsOf(const MSFlexGrid& grid, int column) {
    std::vector<std::string> commands;
    for (int item = 1; item <= menuItemCount; ++item) {
        const std::string number = zeroPadded(item, 3);
        const int row = rowOfItem(grid, number);
        const std::string& value = grid.TextMatrix(row, column);
        const auto command = menuWriteCommand(number, value);
        if (!command) {
            return RuntimeError{errors::TypeMismatch, "Menu item " + number + ": \"" + value + "\" is no value"};
        }
        // Without a row there is nothing to ask or set: the line stays empty.
        commands.push_back(row < 0 ? std::string() : *command);
    }
    return commands;
}

}  // namespace korvex
