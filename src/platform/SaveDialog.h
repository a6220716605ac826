#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "base/RuntimeError.h"
#include "platform/FileDialog.h"

namespace korvex {

/// How a save that asks for its file ended.
struct Saved {
    std::optional<std::string> file;  ///< where it is; only this one is worth remembering
    Failure failure;                  ///< why it is nowhere; neither: nobody wanted it saved
};

/// Asks for a file name and writes there. A failure is told, and another name asked for, until the content is saved or
/// the dialog is cancelled: what was read from a radio for minutes is not lost to a full stick. `mayReplace`, if there
/// is one, has the last word on a file name; its No cancels the save.
Saved saveByDialog(FileDialog& dialog, FileDialogRequest request, std::string_view content,
                   const std::function<void(const RuntimeError&)>& tell,
                   const std::function<bool(const std::string& file)>& mayReplace = {});

}  // namespace korvex
