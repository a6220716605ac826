#pragma once

#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "backup/Differences.h"

namespace korvex::cli {

/// What a person calls an item of a kind of file, in UTF-8; empty when nobody knows.
using ItemTitles = std::function<std::string(const std::string& kind, const std::string& item)>;

/// A line for each: number, title where there is one, both values.
void print(std::ostream& out, const std::vector<Difference>& list, const std::string& kind, const ItemTitles& titles);

/// "042 (Anti-VOX)", or the number alone.
std::string titled(const std::string& kind, const std::string& item, const ItemTitles& titles);

}  // namespace korvex::cli
