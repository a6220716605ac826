#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "base/RuntimeError.h"
#include "keyer/KeyerTexts.h"

namespace korvex {

/// A row of a file, wire text: label, text, count. A cell that the file does not have is empty.
using KeyerFileRow = std::array<std::string, 3>;
/// What stands above the columns of a new grid.
inline const KeyerFileRow keyerTitles = {"Mem.", "Keyer Text", "Char. Count"};
/// Six rows, the titles first; fewer where a file ends early.
using KeyerFileRows = std::vector<KeyerFileRow>;

/// The keyer file (.kem), wire text: a line for each row, then a line that is "|" alone and an empty one.
///
///     |KM1;|CQ CQ DE|8|
std::string keyerFileText(const KeyerFileRows& rows);

/// The rows that the radio's texts make.
KeyerFileRows keyerFileRows(const KeyerTexts& texts);

/// The rows of a file: the titles and one to five memories, each labelled with its own command and three cells wide. A
/// text may hold anything but "|", line breaks too. What is not so is refused (TypeMismatch) with its line and the
/// reason, because labels are sent to the radio; so is a text longer than any that was ever typed, and a row cut off.
Result<KeyerFileRows> parseKeyerFile(std::string_view content);

}  // namespace korvex
