#pragma once

#include <map>
#include <string>
#include <string_view>

#include "base/RuntimeError.h"
#include "memory/MemoryList.h"
#include "memory/MemoryRecord.h"

namespace korvex {

/// A memory list file (.mef) holds the filled rows of the list in ascending order, one line each: the write command
/// with the remark behind it. One empty line ends the file.

/// The records of a list file by their row, 1..99. Whatever is no memory string or names another channel is passed
/// over; of several records for one channel the last counts. A comma ends a value, so a remark loses what follows its
/// first.
std::map<int, MemoryRecord> parseMemoryListFile(std::string_view content);

/// The content of the file for a list; a failure, in words for the user, when a remark cannot be kept in one: the files
/// are Windows-1252 and a line is a row.
Result<std::string> memoryListFileText(const MemoryList& list);

}  // namespace korvex
