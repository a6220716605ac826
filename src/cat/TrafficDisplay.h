#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/Signal.h"

namespace korvex {

/// The text of a traffic pane: everything that came, or went, as wire text with CR LF line ends. It keeps the last
/// `keptCharacters` at least and drops what is older, so that a radio that talks all night fills no memory.
///
/// One view shows it. Appending is cheap, however often: the view is told once that it is out of date, and fetches
/// everything that came since its last visit when it is ready to draw.
class TrafficDisplay {
public:
    static constexpr std::size_t keptCharacters = 200'000;

    void append(std::string_view wire);
    void set(std::string_view wire);
    void clear() { set({}); }
    /// Takes back what stands last, as the Backspace key does while typing; nothing happens when something else does.
    void dropLast(std::string_view wire);

    const std::string& text() const { return m_text; }

    struct Update {
        bool replacesAll = false;  ///< `text` is the whole content; else it follows what is shown already
        std::string_view text;     ///< valid until the display changes
    };
    /// What the view lacks; from now on it counts as shown.
    Update takeUpdate();
    /// The view has lost what it showed: the next update replaces all.
    void forgetShown() { m_replaceAll = true; }

    /// The view is out of date; told once until it has taken the update.
    Signal<> outdated;

private:
    void tell();

    std::string m_text;
    std::size_t m_shown = 0;  // how much of m_text the view has
    bool m_replaceAll = false;
    bool m_told = false;
};

}  // namespace korvex
