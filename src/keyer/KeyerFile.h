#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "base/RuntimeError.h"
#include "keyer/KeyerTable.h"

namespace korvex {

/// The keyer file (.kem), wire text: a line for each row of the grid, titles first, then a line that is "|" alone and
/// an empty one.
///
///     |KM1;|CQ CQ DE|8|
std::string keyerFileText(const KeyerTable& table);

/// A row of a file: label, text, count. A cell that the file does not have is empty.
using KeyerFileRow = std::array<std::string, KeyerTable::columns>;

/// The rows of a file, six at most. A text may hold anything but "|", line breaks too. Refused (TypeMismatch) is what
/// has no "|" at all, a row that is labelled as another memory, because labels are sent to the radio, and a text longer
/// than any that was ever typed.
Result<std::vector<KeyerFileRow>> parseKeyerFile(std::string_view content);

/// Texts, counts and titles as the file has them; rows that it lacks become empty.
void fillKeyerTable(KeyerTable& table, const std::vector<KeyerFileRow>& rows);

}  // namespace korvex
