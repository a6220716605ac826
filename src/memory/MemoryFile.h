#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/RuntimeError.h"
#include "memory/MemoryTables.h"

namespace korvex {

/// A memory file (.mem) holds the stored strings of a read in the order of the channels, one a line, nothing else.

/// The content of the file for the slots 1 to `lastSlot`.
std::string memoryFileText(const MemoryTable& table, int lastSlot);

/// The lines of a memory file as they stand; blank lines are passed over, there is nothing in them to write. A file
/// with more lines than the table has slots is refused, and so is one with a line that is no undamaged memory string:
/// what is sent from it would be some other command.
Result<std::vector<std::string>> parseMemoryFile(std::string_view content);

}  // namespace korvex
