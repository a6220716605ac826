#pragma once

#include <string>
#include <vector>

#include "base/RuntimeError.h"

namespace korvex {

/// A record of the description table, and where it was read.
struct NumberedRecord {
    int line = 0;  ///< of the file
    int id = 0;    ///< what it is sorted by
    std::vector<std::string> fields;
};

/// Why these records, sorted, are not the table of the Menu Manager: titles, then each of the items 001 to 149 once,
/// among the rows that it shows. Else the items would go by other names than their own, or not be there at all.
Failure whyNoMenuTable(const std::vector<NumberedRecord>& records);

}  // namespace korvex
