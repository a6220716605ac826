#pragma once

#include <cstdint>

namespace korvex {

/// The one operation that owns the radio's answers. The starting procedure sets it, completion sets it back to Idle.
enum class ActiveOperation : std::int16_t {
    Idle = 0,
    MenuReadToFile = 1,
    MenuWrite = 2,
    ReadAllToFile = 3,
    RestoreFromFile = 4,
    MenuReadToManager = 5,
    ManagerItemSend = 6,
    WriteListToRadio = 6,  ///< shares its code with ManagerItemSend; it expects no answers
    ReadAllToList = 7,
    ReadOneChannel = 8,
    BandStackRead = 9,
    BandStackWrite = 10,
    AntennaQuery = 11,
    KeyerRead = 12,
    KeyerWrite = 13,
};

}  // namespace korvex
