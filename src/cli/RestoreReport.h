#pragma once

#include <ostream>
#include <vector>

#include "backup/Restore.h"
#include "cli/Comparison.h"

namespace korvex::cli {

/// A line for each item that is not as it should be, or for every item, with what was wanted and what the radio has,
/// and a line with the counts of each kind.
void printReport(std::ostream& out, const std::vector<RestoredItem>& report, const ItemTitles& titles, bool everyItem);

/// The same for programs, every item in it. Of a restore that did not come to its end, why.
void printJson(std::ostream& out, const Restore& restore, const ItemTitles& titles);

}  // namespace korvex::cli
