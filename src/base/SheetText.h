#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/RuntimeError.h"

namespace korvex {

/// A cell in double quotes, with two for each of its own: for whoever writes cells that hold a separator or a line end.
std::string quotedCell(std::string_view cell);

/// Takes such a cell, which `rest` begins with, away from it. Nothing, and `rest` stays, where no quote closes it.
std::optional<std::string> takeQuotedCell(std::string_view& rest);

struct SheetRow {
    int line = 0;  ///< of the text, on which the row begins; the first is 1
    std::vector<std::string> cells;
};

/// A table as spreadsheets write it (UTF-8): a line a row; tabs, semicolons or commas between the cells, whichever
/// comes first in the first row. A cell that begins with a double quote runs to the next one, with line breaks and
/// separators in it; two of them in it stand for one. Rows without any content, and remarks, which begin with "#", are
/// left out. What cannot be read is refused with its line.
Result<std::vector<SheetRow>> readSheet(std::string_view text);

RuntimeError refusedLine(int line, const std::string& why);

}  // namespace korvex
