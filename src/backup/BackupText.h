#pragma once

#include <string>
#include <vector>

#include "backup/FileKind.h"

namespace korvex {

/// What a backup's summary tells, UTF-8.
struct BackupSummary {
    std::string timeOfDay;
    std::string radio;  ///< the answer to ID;, empty when there was none
    std::string port;   ///< number and settings
    struct Part {
        const FileKind* kind;
        std::string file;
        DataItems items;
        std::vector<std::string> missing = {};  ///< what is not among the items, by name
        std::string reading = {};               ///< that has brought it
        std::vector<std::string> times = {};    ///< when it was read: the beginnings of those backups
    };
    std::vector<Part> parts;
    std::vector<std::string> leftOut = {};  ///< what not every radio tells, and this one does not
    std::vector<std::string> resumed = {};  ///< when it was gone on with
    std::vector<std::string> remarks = {};  ///< what the owner should know of the radio, a line each
};

/// A line for each part: "menu.mnu: 149 menu items".
std::vector<std::string> savedLines(const BackupSummary& summary);
/// What is missing in the backup, because the radio refused to tell it or no file can hold it: items by name, and what
/// is missing as a whole. A line each; the backup of a healthy radio has none.
std::vector<std::string> missingLines(const BackupSummary& summary);
/// The same, how many memory channels the radio refused to tell, as it does when they are empty, and what was left out.
std::vector<std::string> refusedLines(const BackupSummary& summary);

/// A page that a person reads: what was saved, and what the radio refused to tell.
std::string summaryText(const BackupSummary& summary);

/// The equalizer's 18 menu items by name, for people: what is restored is in the menu file.
std::string equalizerText(const DataItems& menu);

}  // namespace korvex
