#include "cat/TrafficDisplay.h"

#include <algorithm>
#include <utility>

namespace korvex {

void TrafficDisplay::append(std::string_view wire) {
    if (wire.empty()) return;
    m_text += wire;
    if (m_text.size() > 2 * keptCharacters) {
        std::size_t cut = m_text.size() - keptCharacters;
        const auto lineEnd = m_text.find('\n', cut);
        if (lineEnd != std::string::npos && lineEnd + 1 < m_text.size()) cut = lineEnd + 1;
        m_text.erase(0, cut);
        // What the view shows and what is kept differ now only above its first lines, unless it fell far behind.
        if (cut > m_shown) m_replaceAll = true;
        m_shown -= std::min(cut, m_shown);
    }
    tell();
}

void TrafficDisplay::set(std::string_view wire) {
    if (m_text == wire && !m_replaceAll) return;
    m_text = wire;
    m_replaceAll = true;
    tell();
}

void TrafficDisplay::dropLast(std::string_view wire) {
    if (!m_text.ends_with(wire)) return;
    m_text.resize(m_text.size() - wire.size());
    m_replaceAll = true;
    tell();
}

TrafficDisplay::Update TrafficDisplay::takeUpdate() {
    m_told = false;
    const bool all = std::exchange(m_replaceAll, false);
    const std::size_t from = all ? 0 : m_shown;
    m_shown = m_text.size();
    return {all, std::string_view(m_text).substr(from)};
}

void TrafficDisplay::tell() {
    if (std::exchange(m_told, true)) return;
    outdated.emit();
}

}  // namespace korvex
