#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "backup/RestorePart.h"

namespace korvex {

/// "written", "left alone", ...
std::string wordFor(RestoredItem::Became became);

/// A line for each item that is not as it should be, or for every item, with what was wanted and what the radio has.
std::vector<std::string> itemLines(const std::vector<RestoredItem>& report, const ItemTitles& titles, bool everyItem);

/// How many items of a kind have become what, the kinds in their order.
using RestoreCounts = std::vector<std::pair<std::string, std::map<std::string, int>>>;
RestoreCounts countsOf(const std::vector<RestoredItem>& report);
/// "menu: 148 unchanged, 1 written", a line for each kind.
std::vector<std::string> countLines(const std::vector<RestoredItem>& report);

}  // namespace korvex
