#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>

namespace korvex {

/// Some cables and adapters return what is sent. A command that comes back would pass for the radio's own answer, and
/// confirm what the radio has never heard. The question gives it away: no radio answers "FA;" with "FA;", and the
/// communication test asks it whenever the port has opened. From then on all that has been sent is taken out of what
/// comes, each piece once and in its order.
class EchoGuard {
public:
    /// Another line: nothing is known of it, and nothing has been sent.
    void begin();
    void sent(std::string_view wire);
    /// A piece of what comes, with its ";": whether it is what was sent.
    bool isEcho(std::string_view piece);
    /// The line has been seen to return what is sent.
    bool echoes() const { return m_echoes; }

private:
    static constexpr std::size_t mostOwed = 64;  // pieces; one that is never returned is forgotten

    std::deque<std::string> m_owed;  // what was sent and has not come back
    std::string m_begun;             // behind the last ";"
    bool m_echoes = false;
};

}  // namespace korvex
