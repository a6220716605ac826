#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "base/RuntimeError.h"

namespace korvex {

/// One item of a data file. All but the name is wire text.
struct DataItem {
    std::string name;     ///< "042" of the menu, "007" of the memories, "05.2 MD0" of the band stack, "KM1"
    std::string value;    ///< what the radio has, or had; empty for what is a command and no setting
    std::string command;  ///< what brings it into the radio; empty: nothing is sent for it
    std::string remark;   ///< of a memory list, where the radio has no place for it
};

using DataItems = std::vector<DataItem>;

/// A kind of data file and its ending, as the dialogs propose it.
struct DataKind {
    std::string_view name;
    std::string_view ending;
};
inline constexpr std::array<DataKind, 5> dataKinds = {
    {{"menu", "mnu"}, {"memory", "mem"}, {"list", "mef"}, {"bandstack", "bsr"}, {"keyer", "kem"}}};

/// Empty for a kind that there is not.
std::string endingOf(std::string_view kind);

/// What a file of this kind ("menu", "memory", "list", "bandstack", "keyer") says, in the order in which it is sent.
/// Refused is what the kind's own restore refuses.
Result<DataItems> dataItems(const std::string& kind, std::string_view content);

/// The value of an item that the radio has refused to tell.
bool wasRefused(const DataItem& item);

}  // namespace korvex
