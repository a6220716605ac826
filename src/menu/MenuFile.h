#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/RuntimeError.h"
#include "menu/MenuCommandTable.h"

namespace korvex {

/// The menu file (.mnu): one line a menu item in the order of the items, each the radio's answer as it came, CR LF
/// after each; an item without an answer is an empty line. No header, no count.
std::string menuFileText(const MenuCommandTable& table);

/// The lines of a menu file. Refused are a file with more lines than the table has rows and one with a line that would
/// key the transmitter: nobody restores such a file on purpose.
Result<std::vector<std::string>> menuFileLines(std::string_view content);

/// How many of the answers are the right item's own: "EX", its number, a value, ";".
int answersInPlace(const MenuCommandTable& table);

}  // namespace korvex
