#pragma once

#include "cat/CatLink.h"
#include "platform/MsgBox.h"

namespace korvex {

/// What a reading has brought that did not come to its end.
struct PartOfReading {
    int read = 0;      ///< items that are certain
    ItemWords words;   ///< what they are
    std::string keep;  ///< "Keep them in a file that is marked as incomplete?", UTF-8
};

inline constexpr const char* keepInFile = "Keep them in a file that is marked as incomplete?";

/// Whether that is to be kept: the person is asked once, with No as the default. Nobody is asked where nothing was
/// read, and where the person has just had the reading stopped for something else.
bool mayKeep(const CatLink& link, MsgBox& msgBox, const Outcome& outcome, const PartOfReading& part);

}  // namespace korvex
