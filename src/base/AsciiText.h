#pragma once

#include <string>
#include <string_view>

namespace korvex {

/// Without the characters of `blanks` at both ends.
std::string_view trimmed(std::string_view text, std::string_view blanks = " ");

/// The ASCII letters of a text in one case, and texts compared without it; the locale has no say.
std::string inLowerCase(std::string text);
std::string inCapitals(std::string text);
bool isSameWord(std::string_view one, std::string_view other);

}  // namespace korvex
