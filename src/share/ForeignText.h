#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace korvex {

/// Cuts what another program says into commands of the radio. Blanks and line ends are dropped, as some programs send
/// them behind a ";". What no radio understands, and what never ends, is refused as a whole up to its ";".
class ForeignText {
public:
    struct Command {
        std::string wire;  ///< with its ";"; empty when it was refused
        bool sound() const { return !wire.empty(); }
    };

    std::vector<Command> take(std::string_view bytes);
    /// The program has left: what it had begun is nobody's.
    void forget();

private:
    static constexpr std::size_t longest = 64;  // a keyer text with its head has 54

    Command cut();
    void add(char c);

    std::string m_begun;
    bool m_spoilt = false;
};

}  // namespace korvex
