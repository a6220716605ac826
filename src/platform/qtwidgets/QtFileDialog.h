#pragma once

#include "platform/FileDialog.h"

namespace korvex {

/// The desktop's file dialog over the window in front. Replacing an existing file is asked for here and not left to the
/// desktop: its dialog looks before the extension is added.
class QtFileDialog : public FileDialog {
public:
    std::optional<std::string> show(const FileDialogRequest& request) override;
};

}  // namespace korvex
