#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "bandstack/BandStack.h"
#include "base/RuntimeError.h"

namespace korvex {

/// The band stack file (.bsr), wire text. A line for each row of the grid: "|" before every cell and one after the
/// last, CR LF. Then a line that is "|" alone, and an empty one. The first cell of all is empty, so that the file
/// begins with "||".
std::string bandStackFileText(const BandStack& stack);

/// What a band stack file says, before anything of the grid is touched.
struct BandStackFields {
    std::string text;                      ///< the file's lines with CR LF after each; `fields` points into it
    std::optional<int> rows;               ///< the row count in front of the first "|", which some files have
    bool lacksQueryColumn = false;         ///< the earlier layout: 33 cells a line, without the queries
    std::vector<std::string_view> fields;  ///< what stands between one "|" and the next, line ends included

    BandStackFields() = default;
    BandStackFields(BandStackFields&&) = delete;  // a moved text would leave the fields behind
    BandStackFields& operator=(BandStackFields&&) = delete;
};

/// Cuts a file's content into `fields`. Whatever the content is, this ends well; refused (TypeMismatch) are a file
/// without a single field and one that would key the transmitter when it is written to the radio.
Failure parseBandStackText(std::string_view content, BandStackFields& parsed);

/// Fills the grid: fields that the grid has no place for are dropped, cells without a field become empty.
void fillGrid(BandStack& stack, const BandStackFields& parsed);

}  // namespace korvex
