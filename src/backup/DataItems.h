#pragma once

#include <string>
#include <vector>

namespace korvex {

/// One item of a data file. All but the name is wire text.
struct DataItem {
    std::string name;     ///< "042" of the menu, "007" of the memories, "05.2 MD0" of the band stack, "KM1"
    std::string value;    ///< what the radio has, or had; empty for what is a command and no setting
    std::string command;  ///< what brings it into the radio; empty: nothing is sent for it
    std::string remark;   ///< of a memory list, where the radio has no place for it
};

using DataItems = std::vector<DataItem>;

/// The value of an item that the radio has refused to tell.
bool wasRefused(const DataItem& item);

}  // namespace korvex
