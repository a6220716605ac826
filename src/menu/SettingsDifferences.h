#pragma once

#include <map>
#include <set>
#include <string>
#include <utility>

#include "platform/MSFlexGrid.h"

namespace korvex {

/// What the radio told last, by number of the item ("042").
using RadioValues = std::map<std::string, std::string>;

/// Where the settings columns say different things of an item. The selected column is what the others are compared
/// with, or the first one that holds anything; where it says nothing of an item, the next one that does. An empty cell
/// says nothing and differs from nothing; values are compared as they would be sent ("65" is not "065").
struct SettingsDifferences {
    /// Another cell of the same row.
    struct Other {
        int column = 0;
        std::string value;
    };

    int reference = 0;                            ///< the column; 0 where no column holds anything
    std::map<std::pair<int, int>, Other> unlike;  ///< by row and column: what it differs from
    std::map<int, int> counts;                    ///< by column, of those that hold anything, without the reference
    std::set<int> rows;                           ///< with any difference
    std::map<int, std::string> unlikeRadio;       ///< by row of the selected column: what the radio has
};

/// `selected` is 0 while no column is; then nothing is held against the radio.
SettingsDifferences differencesIn(const MSFlexGrid& grid, int selected, const RadioValues& radio);

/// The counts, for a person: "Against Settings 1: Settings 2 differs in 5 items, Settings 3 in none". Empty where there
/// is nothing to compare.
std::string inWords(const SettingsDifferences& differences, const MSFlexGrid& grid);

}  // namespace korvex
