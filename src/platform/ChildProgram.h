#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "base/RuntimeError.h"

namespace korvex {

/// A program that is run for what it prints. No shell takes part: every argument reaches it as it is.
struct ChildProgramOrder {
    std::string program;  ///< its name, looked for in PATH
    std::vector<std::string> arguments;
    int mostMs = 10'000;  ///< it is ended when it takes longer
    std::size_t mostBytes = std::size_t{16} * 1024 * 1024;
};

struct ChildProgramEnd {
    int code = 0;  ///< its exit code; 128 and the signal's number when one ended it
    std::string output;
    std::string errors;  ///< what it printed on its error stream
};

/// Runs it, with nothing to read, and comes back at its end. FileNotFound where there is no such program; another
/// failure when it took too long or printed too much.
using RunChildProgram = std::function<Result<ChildProgramEnd>(const ChildProgramOrder& order)>;

}  // namespace korvex
