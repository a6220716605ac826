#pragma once

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "backup/DataItems.h"
#include "backup/Differences.h"
#include "platform/SerialDevice.h"

namespace korvex::cli {

struct SaveReport {
    std::string_view kind;
    const std::string& file;
    const DataItems& items;
    const std::vector<std::string>& remarks;  ///< what the reading has to say of itself
};

struct CompareReport {
    std::string_view kind;
    const std::string& left;
    const std::string& right;
    const std::vector<Difference>& differences;
};

/// What save, compare and ports have to say, for programs: one JSON object or list each. That of a restore is in
/// RestoreReport.h.
void printJson(std::ostream& out, const SaveReport& report, const ItemTitles& titles);
void printJson(std::ostream& out, const CompareReport& report, const ItemTitles& titles);
void printJson(std::ostream& out, const std::vector<SerialPortInfo>& ports);

}  // namespace korvex::cli
