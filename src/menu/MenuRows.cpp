#include "menu/MenuRows.h"

#include <algorithm>
#include <set>

#include "base/NumberText.h"
#include "menu/MenuCommandTable.h"

namespace korvex {

namespace {

/// This item's description begins in the row above its number.
constexpr std::string_view itemWithARowAbove = "111";

const std::string& numberAt(const std::vector<std::string>& numbers, int row) {
    return numbers[static_cast<std::size_t>(row)];
}

std::string keyOf(const std::vector<std::string>& numbers, int row) {
    const int itemRow = itemRowOf(numbers, row);
    const std::string& number = numberAt(numbers, itemRow);
    if (row == itemRow) return number;
    return number + (row > itemRow ? "+" : "") + std::to_string(row - itemRow);
}

}  // namespace

int itemRowOf(const std::vector<std::string>& numbers, int row) {
    const int rows = static_cast<int>(numbers.size());
    if (row < 1 || row >= rows || !numberAt(numbers, row).empty()) return row;
    if (row + 1 < rows && numberAt(numbers, row + 1) == itemWithARowAbove) return row + 1;
    for (int above = row - 1; above > 0; --above) {
        if (!numberAt(numbers, above).empty()) return above;
    }
    return row;
}

std::vector<std::string> rowKeys(const std::vector<std::string>& numbers) {
    std::vector<std::string> keys;
    std::set<std::string> known;
    for (int row = 0; row < static_cast<int>(numbers.size()); ++row) {
        std::string key = row == 0 ? std::string() : keyOf(numbers, row);
        if (!known.insert(key).second) key = "?" + std::to_string(row);
        keys.push_back(std::move(key));
    }
    return keys;
}

bool isMenuNumber(std::string_view text) {
    return text.size() == 3 && menuNumber(text) == text;
}

std::optional<std::string> menuNumber(std::string_view text) {
    const auto number = parseWhole(text);
    const bool plain = std::all_of(text.begin(), text.end(), [](char c) { return isDigit(c) || c == ' '; });
    if (!number || !plain || *number < 1 || *number > menuItemCount) return {};
    return zeroPadded(*number, 3);
}

}  // namespace korvex
