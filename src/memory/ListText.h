#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "memory/MemoryList.h"
#include "memory/MemoryRow.h"

/// Rows of the memory list as a spreadsheet takes them: UTF-8, a line each, a tab between its cells.

namespace korvex {

/// The twelve fields of each row, codes or readable, with their names above them if wanted.
std::string rowsAsText(const std::vector<MemoryRow>& rows, bool readable, bool withHeadings);

/// Whether a text has several lines or several cells in one.
bool isTable(std::string_view text);

/// What became of a text that is to be pasted.
struct PastedRows {
    std::map<int, MemoryRow> rows;     ///< as they would be, by row; only those whose cells can all be taken
    std::vector<std::string> refused;  ///< the cells that cannot be taken, in words
};

/// The lines of `text` as rows from `row` on, one after the other. Names of fields in the first line say which columns
/// there are; twelve columns are all fields, thirteen have the row's number in front; fewer go from `field` to the
/// right, and leave the other cells of the row as they are. A row has the number that it is pasted to, whatever it was.
/// An empty line empties its row, where it could have told the frequency.
PastedRows rowsFromText(const MemoryList& list, std::string_view text, int row, MemoryField field);

/// Gives a row its channel number and, where a cell is empty, what the editor takes for that.
void complete(MemoryRow& content, int row);

}  // namespace korvex
