#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "base/RuntimeError.h"
#include "memory/MemoryList.h"
#include "memory/MemoryRecord.h"

namespace korvex {

/// A memory list file (.mef) holds the filled rows of the list in ascending order, one line each: the write command
/// with the remark behind it. One empty line ends the file.

/// The records of a list file by their row, 1..99. What is too short for a memory string or names another channel is
/// passed over; of several records for one channel the last counts. A comma ends a value, so a remark loses what
/// follows its first, unless that has the shape of a memory string. A line without that shape makes the file none of
/// its kind.
Result<std::map<int, MemoryRecord>> parseMemoryListFile(std::string_view content);

/// Why a remark (UTF-8) cannot be kept in a list file, in words for the user; nothing when it can. The files are
/// Windows-1252, a line is a row, and a comma ends a value.
std::optional<std::string> whyRemarkIsRefused(const std::string& remark);

/// The content of the file for a list; a failure, in words for the user, when a remark cannot be kept in one.
Result<std::string> memoryListFileText(const MemoryList& list);

}  // namespace korvex
