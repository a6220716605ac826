#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "base/RuntimeError.h"
#include "memory/MemoryRecord.h"

namespace korvex {

/// The channels of a memory file (`kind` "memory") or of a memory list ("list"), in the order of the file.
Result<std::vector<MemoryRecord>> channelsIn(std::string_view kind, std::string_view content);

/// The file of either kind; fails when the kind cannot hold a channel. A memory file has no remarks.
Result<std::string> channelFile(std::string_view kind, const std::map<int, MemoryRecord>& channels);

/// The channel 1..99 that a cell names, "007" or "7"; 0 when it names none.
int channelNamed(const std::string& cell);

}  // namespace korvex
