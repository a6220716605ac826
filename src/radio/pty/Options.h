#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/RuntimeError.h"
#include "platform/LineSettings.h"
#include "radio/Faults.h"

namespace korvex::pty {

struct Options {
    std::string link;        ///< a second name for the device; empty: none
    std::string stateFile;   ///< empty: nothing is kept
    std::string logFile;     ///< empty: no log
    std::string reportFile;  ///< of a radio to behave like; empty: none
    int turnaroundMs = 30;
    std::optional<LineSettings> line;  ///< how fast characters come and go; else they take no time
    Faults faults;
    std::string print;  ///< of --help or --version: to be printed in place of a run
};

/// Reads the command line's arguments; the failure's text says which one is wrong.
Result<Options> parseOptions(const std::vector<std::string>& arguments);

}  // namespace korvex::pty
