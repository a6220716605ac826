#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "backup/Differences.h"

namespace korvex::cli {

/// A line for each: number, title where there is one, both values.
void print(std::ostream& out, const std::vector<Difference>& list, const std::string& kind, const ItemTitles& titles);

}  // namespace korvex::cli
