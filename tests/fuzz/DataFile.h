#pragma once

#include <string>
#include <string_view>

namespace korvex::fuzz {

/// What holds for a data file of every kind as korvexctl reads it: it is like itself, and what would be sent for its
/// items keys no transmitter.
void checkItems(const std::string& kind, std::string_view content);

/// A value that stands in a file of lines just as it is: no quotes, commas and outer blanks, which the reader takes
/// away.
bool isPlain(std::string_view value);

}  // namespace korvex::fuzz
