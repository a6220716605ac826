#include "cat/EchoGuard.h"

#include <algorithm>

#include "base/Lines.h"

namespace korvex {

namespace {

std::string_view withoutLineEnd(std::string_view piece) {
    piece.remove_prefix(std::min(piece.find_first_not_of(crLf), piece.size()));
    return piece;
}

/// What an answer always has more characters than: two letters, or those and the number of a menu item or memory.
/// (A keyer memory is not among them: "KM1;" is how an empty one is told.)
bool isQuestion(std::string_view piece) {
    constexpr std::size_t letters = 3;   // FA;
    constexpr std::size_t numbered = 6;  // EX042;
    return piece.size() == letters ||
           (piece.size() == numbered && (piece.starts_with("EX") || piece.starts_with("MR")));
}

}  // namespace

void EchoGuard::begin() {
    m_owed.clear();
    m_begun.clear();
    m_echoes = false;
}

void EchoGuard::sent(std::string_view wire) {
    for (auto end = wire.find(';'); end != std::string_view::npos; end = wire.find(';')) {
        m_begun += wire.substr(0, end + 1);
        m_owed.emplace_back(withoutLineEnd(m_begun));
        m_begun.clear();
        wire.remove_prefix(end + 1);
        if (m_owed.size() > mostOwed) m_owed.pop_front();
    }
    m_begun += wire;
}

bool EchoGuard::isEcho(std::string_view piece) {
    piece = withoutLineEnd(piece);
    const auto own = std::find(m_owed.begin(), m_owed.end(), piece);
    if (own == m_owed.end()) return false;
    if (!m_echoes && !isQuestion(piece)) return false;
    m_echoes = true;
    m_owed.erase(m_owed.begin(), own + 1);
    return true;
}

}  // namespace korvex
