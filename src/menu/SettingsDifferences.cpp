#include "menu/SettingsDifferences.h"

#include <algorithm>
#include <vector>

#include "menu/MenuRows.h"
#include "menu/SettingsColumns.h"

namespace korvex {

namespace {

std::vector<int> rowsOfItems(const MSFlexGrid& grid) {
    std::vector<int> rows;
    for (int row = 1; row < grid.Rows(); ++row) {
        if (isMenuNumber(grid.TextMatrix(row, 0))) rows.push_back(row);
    }
    return rows;
}

/// In the order in which they are looked at: the selected one first.
std::vector<int> usedColumns(const MSFlexGrid& grid, const std::vector<int>& rows, int selected) {
    auto columns = settingsColumns(grid);
    std::stable_partition(columns.begin(), columns.end(), [selected](int column) { return column == selected; });
    std::erase_if(columns, [&](int column) {
        return std::all_of(rows.begin(), rows.end(), [&](int row) { return grid.TextMatrix(row, column).empty(); });
    });
    return columns;
}

void compareRow(SettingsDifferences& result, const MSFlexGrid& grid, int row, const std::vector<int>& columns) {
    SettingsDifferences::Other first;
    for (const int column : columns) {
        const std::string& value = grid.TextMatrix(row, column);
        if (value.empty()) continue;
        if (first.column == 0) first = {column, value};
        if (value == first.value) continue;
        result.unlike[{row, column}] = first;
        result.rows.insert(row);
        ++result.counts[column];
    }
}

std::string inItems(int count) {
    return count == 0 ? "in none" : "in " + std::to_string(count);
}

}  // namespace

SettingsDifferences differencesIn(const MSFlexGrid& grid, int selected, const RadioValues& radio) {
    SettingsDifferences result;
    const auto rows = rowsOfItems(grid);
    const auto columns = usedColumns(grid, rows, selected);
    for (const int column : columns) {
        if (result.reference == 0) result.reference = column;
        if (column != result.reference) result.counts[column] = 0;
    }
    for (const int row : rows) {
        compareRow(result, grid, row, columns);
        const auto known = radio.find(grid.TextMatrix(row, 0));
        const std::string& value = grid.TextMatrix(row, selected);
        if (selected > 0 && known != radio.end() && !value.empty() && known->second != value) {
            result.unlikeRadio[row] = known->second;
        }
    }
    return result;
}

std::string inWords(const SettingsDifferences& differences, const MSFlexGrid& grid) {
    std::string text;
    for (const auto& [column, count] : differences.counts) {
        text += text.empty() ? "Against " + columnName(grid, differences.reference) + ": " : ", ";
        text += columnName(grid, column) + " differs " + inItems(count);
    }
    return text;
}

}  // namespace korvex
