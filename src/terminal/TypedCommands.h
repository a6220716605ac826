#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace korvex {

/// The commands of a typed line, and which of them the radio refuses. "?;" names nothing; but the radio answers in
/// order, so that it stands for a command behind the last one that was answered and before the next one that will be.
class TypedCommands {
public:
    TypedCommands() = default;
    explicit TypedCommands(std::string_view wire);

    bool empty() const { return m_commands.empty(); }

    /// What the radio says, in whatever pieces. Whether it has told anything new of what it refuses.
    bool take(std::string_view wire);

    /// Wire text: "XX;", or "one of XX; MD0;" where the answers do not tell (yet) which; empty while nothing is
    /// refused.
    std::string refused() const;

private:
    /// Neighbours between two that were answered.
    struct Gap {
        std::size_t first;
        std::size_t end;  ///< behind the last of them
        std::size_t refusals;
    };

    void takePiece(std::string_view piece);
    std::string inWords(const Gap& gap) const;

    std::vector<std::string> m_commands;
    std::vector<Gap> m_gaps;  // the last one is open: more answers may come
    std::string m_came;       // not yet ended by ";"
};

}  // namespace korvex
