#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "cat/Outcome.h"
#include "report/RadioReport.h"

namespace korvex {

/// What the owner should know and may want to change, in plain words, UTF-8: the verdict first. `how` is the end of the
/// examination. The beliefs have been judged.
std::vector<std::string> adviceFor(const RadioReport& report, const Outcome& how);

/// The menu items to which this came: "?;", or "" for nothing at all.
std::vector<int> menuItemsWith(const RadioReport& report, std::string_view answer);

/// The radio is an FT-2000, has answered to the end, and nothing that Korvex believes of it was refuted.
bool isAsBelieved(const RadioReport& report, const Outcome& how);

}  // namespace korvex
