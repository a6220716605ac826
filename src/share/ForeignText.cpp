#include "share/ForeignText.h"

#include <utility>

namespace korvex {

namespace {

bool isLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

}  // namespace

std::vector<ForeignText::Command> ForeignText::take(std::string_view bytes) {
    std::vector<Command> commands;
    for (const char c : bytes) {
        if (c == ';') {
            commands.push_back(cut());
        } else {
            add(c);
        }
    }
    return commands;
}

void ForeignText::forget() {
    m_begun.clear();
    m_spoilt = false;
}

void ForeignText::add(char c) {
    if (m_begun.empty() && (c == ' ' || c == '\r' || c == '\n' || c == '\0')) return;
    if (c < ' ' || c > '~' || m_begun.size() == longest) m_spoilt = true;
    if (!m_spoilt) m_begun += c;
}

ForeignText::Command ForeignText::cut() {
    const bool spoilt = std::exchange(m_spoilt, false);
    std::string begun = std::exchange(m_begun, {});
    if (spoilt || begun.size() < 2 || !isLetter(begun[0]) || !isLetter(begun[1])) return {};
    return {std::move(begun) + ";"};
}

}  // namespace korvex
