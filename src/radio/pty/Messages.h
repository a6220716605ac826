#pragma once

#include <cstdio>
#include <string>

#include "base/Printable.h"

namespace korvex::pty {

/// A line on stderr, in which nothing is obeyed by a terminal. Gives the exit code of a program that ends with it.
inline int complain(const std::string& text) {
    std::fputs(("ft2000sim: " + printable(text) + "\n").c_str(), stderr);
    return 1;
}

/// On stdout; the exit code is 0 when it has arrived there.
inline int show(const std::string& text) {
    const bool shown = std::fputs(printable(text).c_str(), stdout) >= 0 && std::fflush(stdout) == 0;
    return shown ? 0 : complain("the output could not be written");
}

}  // namespace korvex::pty
