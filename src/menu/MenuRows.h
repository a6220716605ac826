#pragma once

#include <string_view>

namespace korvex {

/// Some menu items take several rows of the grid. The row that an item's number stands in, for any row of the grid.
int itemRowOf(int row);

/// "001" to "149".
bool isMenuNumber(std::string_view text);

}  // namespace korvex
