#pragma once

#include "platform/Shell.h"

namespace korvex {

/// Starts what the desktop has for the purpose; the programs go on by themselves. The environment variables
/// KORVEX_EDITOR, KORVEX_BROWSER and KORVEX_SYSTEM_INFORMATION name another command each.
class QtShell : public Shell {
public:
    /// The desktop opens data files with Korvex itself: what opens plain text opens them here.
    Failure openTextEditor(const std::string& file) override;
    Failure openBrowser(const std::string& file) override;
    Failure openSystemInformation() override;
};

}  // namespace korvex
