#pragma once

#include "memory/MemoryList.h"
#include "platform/MsgBox.h"

namespace korvex {

/// Whether what the user has changed in the list may go: nothing was changed, or he is asked and lets it go.
inline bool mayLoseEdits(const MemoryList& list, MsgBox& msgBox) {
    return !list.modified || msgBox.confirm("The memory list has changes that are in no file. Go on without them?");
}

}  // namespace korvex
