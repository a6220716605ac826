#pragma once

#include <istream>
#include <ostream>
#include <string>
#include <string_view>

#include "base/RuntimeError.h"

namespace korvex::cli {

/// What a command line calls a file: a path, or "-" for what the program was given as its standard input and output.
class Files {
public:
    Files(std::istream& input, std::ostream& output) : m_input(input), m_output(output) {}

    /// Standard input can be read once.
    Result<std::string> read(const std::string& name) const;
    Failure write(const std::string& name, std::string_view content) const;
    /// As far as it can be told without touching anything.
    static Failure whyNotWritable(const std::string& name);

private:
    std::istream& m_input;
    std::ostream& m_output;
};

}  // namespace korvex::cli
