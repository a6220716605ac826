#pragma once

#include <string>

#include "base/RuntimeError.h"

namespace korvex {

/// Starts other programs of the desktop.
class Shell {
public:
    virtual ~Shell() = default;
    /// The desktop's text editor on a file; FileNotFound when there is none.
    virtual Failure openTextEditor(const std::string& file) = 0;
    /// The user's browser on a local page.
    virtual Failure openBrowser(const std::string& file) = 0;
    /// The desktop's program that tells about the machine; a failure when there is none.
    virtual Failure openSystemInformation() = 0;
};

}  // namespace korvex
