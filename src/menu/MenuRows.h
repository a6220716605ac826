#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvex {

/// A menu item takes one row or several; its number stands in one of them, and the others, whose number is empty, go
/// with it. Only the numbers say which item a row is: an owner's table may have more rows than the shipped one, or
/// fewer.
///
/// `numbers` is the first column, from the titles' row down to the last row that the table has.

/// The row that the item's number stands in, for any of its rows; for a row that belongs to no item, the row itself.
int itemRowOf(const std::vector<std::string>& numbers, int row);

/// What tells a row from all others whatever stands above it: "042" for an item's own row, "042+1" and so on for the
/// ones below it, "042-1" above it, "" for the titles. A row whose number came before has no key of its own: "?17".
std::vector<std::string> rowKeys(const std::vector<std::string>& numbers);

/// "001" to "149".
bool isMenuNumber(std::string_view text);

/// The number that is meant, as spreadsheets leave it of "001": "1", or with blanks around it.
std::optional<std::string> menuNumber(std::string_view text);

}  // namespace korvex
