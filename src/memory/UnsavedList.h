#pragma once

#include <string>

#include "memory/MemoryList.h"
#include "platform/MsgBox.h"

namespace korvex {

/// Whether what the user has changed in the list may go: nothing was changed, or he is asked and lets it go.
inline bool mayLoseEdits(const MemoryList& list, MsgBox& msgBox) {
    return !list.modified || msgBox.confirm("The memory list has changes that are in no file. Go on without them?");
}

/// The question before a file with `channels` channels is replaced by one without any.
inline std::string emptyOverFull(const std::string& file, int channels) {
    return "There is no channel to save, and " + file + " holds " + std::to_string(channels) +
           ". Replace it by an empty file?";
}

}  // namespace korvex
