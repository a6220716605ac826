#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace korvex {

/// One character of the serial line or of a data file is one byte of Windows-1252. Text on that side is called wire
/// text and kept in std::string, so that a position in it is a character position. What a person sees is UTF-8. These
/// two functions are the only bridge.

/// Every byte has a character: the five that Windows-1252 leaves open (81, 8D, 8F, 90, 9D hex) become the control
/// characters of the same number, so that no byte is ever lost on the way there and back.
std::string utf8FromWire(std::string_view wire);

/// Nothing when a character is not in Windows-1252, or when the text is no valid UTF-8.
std::optional<std::string> wireFromUtf8(std::string_view utf8);

/// The first character (as UTF-8) that Windows-1252 cannot express, for messages; nothing when all can be.
std::optional<std::string> firstInexpressible(std::string_view utf8);

bool isUtf8(std::string_view text);

/// How many characters a UTF-8 text has.
std::size_t utf8Length(std::string_view utf8);

/// The Unicode character of one wire byte, for displays that convert by themselves.
char32_t unicodeFromWire(unsigned char byte);

}  // namespace korvex
