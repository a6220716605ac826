#pragma once

#include <optional>
#include <string>

namespace korvex {

/// Cuts what comes over the line into commands, as the radio does: at each ";". CR and LF between commands are passed
/// over.
class CommandCutter {
public:
    /// The command that this character ends, without its ";".
    std::optional<std::string> take(char c);

    bool insideCommand() const { return !m_command.empty(); }
    void drop() { m_command.clear(); }

private:
    std::string m_command;
};

}  // namespace korvex
