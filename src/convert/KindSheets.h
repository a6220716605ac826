#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "base/RuntimeError.h"
#include "convert/Table.h"

namespace korvex {

/// What a person calls a menu item ("042"), UTF-8; empty when nobody knows.
using MenuTitles = std::function<std::string(const std::string& item)>;

/// A kind of data file as a table for spreadsheets and back, with every column. What a spreadsheet does to numbers is
/// understood: "1" is item 001, and a value that lost its zeros gets them back from the command in the row.
///
/// `kind` is "menu", "memory", "list", "bandstack" or "keyer". What a table says is refused with its line where a file
/// of the kind could not hold it.
Result<Table> sheetOf(std::string_view kind, std::string_view content, const MenuTitles& titles);
Result<std::string> fileOf(std::string_view kind, std::string_view csv);

}  // namespace korvex
