#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/RuntimeError.h"

namespace korvex {

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
