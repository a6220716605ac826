#pragma once

#include <string>
#include <string_view>

namespace korvex {

/// Where a value that a FieldReader has cut out of a data file's content stands in it.

/// The number of its line, counted from 1.
int lineOf(std::string_view content, std::string_view value);

/// Whether nothing stands before it in its line.
bool beginsItsLine(std::string_view content, std::string_view value);

/// "Line 3 (MR002)": the line and what its value begins with, UTF-8, for messages.
std::string lineInWords(std::string_view content, std::string_view value);

}  // namespace korvex
