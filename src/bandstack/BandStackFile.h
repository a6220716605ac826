#pragma once

#include <string>
#include <string_view>

#include "bandstack/BandStackCells.h"
#include "base/RuntimeError.h"

namespace korvex {

/// The band stack file (.bsr), wire text. A line for each row of the grid: "|" before every cell and one after the
/// last, CR LF. Then a line that is "|" alone, and an empty one. The first cell of all is empty, so that the file
/// begins with "||".
std::string bandStackFileText(const BandStackCells& cells);

/// The cells of a file; those that it lacks are empty. Also of a file from before the queries were stored, which is
/// known by its first cell, and of one with its row count in front.
///
/// Nothing else is taken than what a radio can have answered: the cells of row 0 are the band-select commands, column 0
/// the queries, and every other cell is empty, a refusal, or an answer to the query of its row. Else it is refused
/// (TypeMismatch) with row, column and reason: what stands in a cell goes out as a command.
Result<BandStackCells> parseBandStackText(std::string_view content);

}  // namespace korvex
