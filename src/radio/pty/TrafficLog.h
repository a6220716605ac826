#pragma once

#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

#include "base/RuntimeError.h"

namespace korvex::pty {

/// Writes down what is said on the line: seconds, "<" to the radio or ">" from it, the text with what cannot be printed
/// as \xNN. Every line is in the file at once.
class TrafficLog {
public:
    Failure open(const std::string& path);
    void write(double nowMs, char direction, std::string_view text);

private:
    struct Closer {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };
    std::unique_ptr<std::FILE, Closer> m_file;
};

}  // namespace korvex::pty
