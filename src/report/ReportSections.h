#pragma once

#include <string_view>

/// The headings of a report's sections; what stands in a section begins with two blanks.
namespace korvex::sections {

inline constexpr std::string_view inShort = "In short";
inline constexpr std::string_view made = "How it was made";
inline constexpr std::string_view line = "The line and the radio";
inline constexpr std::string_view beliefs = "What Korvex believes of the radio";
inline constexpr std::string_view told = "Answers as they came";
inline constexpr std::string_view delays = "Time to answer";
inline constexpr std::string_view forms = "How it answers (n a digit, + a sign, x another character, * a text)";
inline constexpr std::string_view settings = "Your settings, because you wanted them in";

}  // namespace korvex::sections
