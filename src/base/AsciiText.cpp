#include "base/AsciiText.h"

#include <algorithm>

#include "base/NumberText.h"

namespace korvex {

std::string_view trimmed(std::string_view text, std::string_view blanks) {
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::string inLowerCase(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), asciiLower);
    return text;
}

std::string inCapitals(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), asciiUpper);
    return text;
}

bool isSameWord(std::string_view one, std::string_view other) {
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [](char a, char b) { return asciiLower(a) == asciiLower(b); });
}

}  // namespace korvex
