#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "backup/DataItems.h"
#include "cli/Comparison.h"

namespace korvex::cli {

/// What was written into a radio, and what it has now.
struct Written {
    const std::string& kind;
    const DataItems& wanted;
    const DataItems& found;                   ///< read back
    const std::vector<std::string>& refused;  ///< items
};

/// A line for each item: written, refused or different, the latter two with what was wanted and what the radio has.
/// What the radio has decides: a refusal that came for an item that it has all the same is no trouble. True when every
/// item took.
bool reportWritten(std::ostream& out, const Written& written, const ItemTitles& titles);

}  // namespace korvex::cli
