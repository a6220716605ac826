#include "terminal/TypedCommands.h"

#include <algorithm>

namespace korvex {

namespace {

constexpr std::size_t longestPiece = 200;  // no answer is as long; noise without end is not kept

/// An answer repeats the question and adds to it: "FA;" -> "FA14195000;". What was set comes back as it is, or not at
/// all.
bool answers(std::string_view piece, const std::string& command) {
    return piece.size() > command.size() && piece.starts_with(command.substr(0, command.size() - 1));
}

}  // namespace

TypedCommands::TypedCommands(std::string_view wire) {
    while (!wire.empty()) {
        const auto end = std::min(wire.find(';'), wire.size() - 1) + 1;
        m_commands.emplace_back(wire.substr(0, end));
        wire.remove_prefix(end);
    }
    m_gaps.push_back({0, m_commands.size(), 0});
}

bool TypedCommands::take(std::string_view wire) {
    if (empty()) return false;
    const std::string before = refused();
    for (const char c : wire) {
        if (m_came.size() < longestPiece) m_came += c;
        if (c != ';') continue;
        takePiece(m_came);
        m_came.clear();
    }
    return refused() != before;
}

void TypedCommands::takePiece(std::string_view piece) {
    Gap& open = m_gaps.back();
    if (piece.ends_with("?;")) {
        open.refusals = std::min(open.refusals + 1, open.end - open.first);
        return;
    }
    const auto isAnswered = [&](const std::string& command) { return answers(piece, command); };
    const auto from = m_commands.begin() + static_cast<std::ptrdiff_t>(open.first);
    const auto answered = std::find_if(from, m_commands.end(), isAnswered);
    if (answered == m_commands.end()) return;
    const auto at = static_cast<std::size_t>(answered - m_commands.begin());
    // A refusal is worth nothing where no command is left that could have been meant.
    open.end = at;
    open.refusals = std::min(open.refusals, open.end - open.first);
    m_gaps.push_back({at + 1, m_commands.size(), 0});
}

std::string TypedCommands::inWords(const Gap& gap) const {
    const std::size_t candidates = gap.end - gap.first;
    std::string text = gap.refusals == candidates ? ""
                       : gap.refusals == 1        ? "one of "
                                                  : std::to_string(gap.refusals) + " of ";
    for (std::size_t at = gap.first; at < gap.end; ++at) text += (at > gap.first ? " " : "") + m_commands[at];
    return text;
}

std::string TypedCommands::refused() const {
    std::string text;
    for (const Gap& gap : m_gaps) {
        if (gap.refusals > 0) text += (text.empty() ? "" : ", ") + inWords(gap);
    }
    return text;
}

}  // namespace korvex
