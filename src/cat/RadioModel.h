#pragma once

#include <string_view>

namespace korvex {

/// "FT-2000" (100 W) or "FT-2000D" (200 W) for their answers to "ID;", which are "ID0251;" and "ID0252;"; empty for any
/// other radio's.
constexpr std::string_view ft2000Named(std::string_view answer) {
    if (answer == "ID0251;") return "FT-2000";
    if (answer == "ID0252;") return "FT-2000D";
    return {};
}

constexpr bool isFt2000(std::string_view answer) {
    return !ft2000Named(answer).empty();
}

}  // namespace korvex
