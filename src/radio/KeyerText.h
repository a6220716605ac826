#pragma once

#include <algorithm>
#include <string_view>

namespace korvex {

inline constexpr std::size_t longestKeyerText = 50;

/// What a keyer memory of the radio can hold: up to 50 characters, none of them a control character.
inline bool isKeyerText(std::string_view text) {
    return text.size() <= longestKeyerText &&
           std::none_of(text.begin(), text.end(), [](char c) { return (c >= 0 && c < ' ') || c == '\x7F'; });
}

}  // namespace korvex
