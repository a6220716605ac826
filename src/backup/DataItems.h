#pragma once

#include <functional>
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

/// What a person calls an item of a kind of file, in UTF-8; empty when nobody knows.
using ItemTitles = std::function<std::string(const std::string& kind, const std::string& item)>;

/// "042 (Anti-VOX)", or the number alone.
std::string titled(const std::string& kind, const std::string& item, const ItemTitles& titles);

/// The value of an item that the radio has refused to tell.
bool wasRefused(const DataItem& item);

}  // namespace korvex
