#pragma once

#include <string>
#include <string_view>

#include "backup/DataItems.h"

namespace korvex::cli {

/// Why the items of a file cannot go into a radio as they are; empty when they can.
std::string whyNotRestorable(const std::string& kind, const DataItems& items);

/// What a band stack file lacks, and that "--force" restores the rest; empty where it lacks nothing.
std::string whyBandStackIncomplete(std::string_view content);

/// Whether at least one of them is what its kind is about. An empty keyer text is none: it makes a question.
bool holdsAnything(const std::string& kind, const DataItems& items);

}  // namespace korvex::cli
