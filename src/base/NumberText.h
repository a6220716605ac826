#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace korvex {

/// `number` in decimal with leading zeros up to `width` characters; longer numbers stay whole.
std::string zeroPadded(int number, int width);

/// The whole text as a decimal number ("-20", "+05", "007"), blanks around it allowed. Nothing for an empty text, for
/// anything else beside the digits and for a number that does not fit. Never depends on the locale.
std::optional<int> parseWhole(std::string_view text);

/// Upper and lower ASCII letters, nothing else: independent of the locale.
char asciiLower(char c);
char asciiUpper(char c);
bool isDigit(char c);

}  // namespace korvex
