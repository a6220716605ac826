#include "radio/CommandCutter.h"

#include <utility>

namespace korvex {

std::optional<std::string> CommandCutter::take(char c) {
    // Longer than any command: it will be refused for its length, and need not grow without end.
    constexpr std::size_t longest = 100;
    if (c == ';') return std::exchange(m_command, {});
    const bool between = m_command.empty() && (c == '\r' || c == '\n');
    if (!between && m_command.size() < longest) m_command += c;
    return std::nullopt;
}

}  // namespace korvex
