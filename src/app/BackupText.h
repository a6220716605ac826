#pragma once

#include <string>
#include <vector>

#include "app/DataItems.h"

namespace korvex {

/// What a backup's summary tells, UTF-8.
struct BackupSummary {
    std::string timeOfDay;
    std::string radio;  ///< the answer to ID;, empty when there was none
    std::string port;   ///< number and settings
    struct Part {
        std::string kind;
        std::string file;
        DataItems items;
    };
    std::vector<Part> parts;
};

/// A line for each part: "menu.mnu: 149 menu items".
std::vector<std::string> savedLines(const BackupSummary& summary);
/// What the radio refused to tell: items by name, and what is missing as a whole. A line each.
std::vector<std::string> refusedLines(const BackupSummary& summary);

/// A page that a person reads: what was saved, and what the radio refused to tell.
std::string summaryText(const BackupSummary& summary);

/// The equalizer's 18 menu items by name, for people: what is restored is in the menu file.
std::string equalizerText(const DataItems& menu);

}  // namespace korvex
