#pragma once

#include <string>

#include "platform/ProgressWindow.h"

namespace korvex {

/// The caption for a transfer that has none of its own: the progress window keeps its last one; `first` is for when
/// there was none.
inline std::string keptCaption(const ProgressWindow& progress, const std::string& first) {
    return progress.caption.get().empty() ? first : progress.caption.get();
}

}  // namespace korvex
