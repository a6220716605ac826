#include "radio/ValueRule.h"

#include <algorithm>

#include "base/NumberText.h"

namespace korvex {

namespace {

constexpr std::size_t longestNumber = 5;

bool isSign(char c) {
    return c == '+' || c == '-';
}

bool onlyDigits(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), isDigit);
}

bool isAnyNumber(std::string_view value) {
    if (value.size() > longestNumber) return false;
    if (!value.empty() && isSign(value.front())) value.remove_prefix(1);
    return onlyDigits(value);
}

}  // namespace

bool ValueRule::accepts(std::string_view value) const {
    if (!choices.empty()) return value.size() == 1 && choices.find(value.front()) != std::string_view::npos;
    if (width == 0) return isAnyNumber(value);
    if (value.size() != static_cast<std::size_t>(width)) return false;
    if (hasSign != isSign(value.front()) || !onlyDigits(value.substr(hasSign ? 1 : 0))) return false;
    const auto number = parseWhole(value);
    return number && *number >= low && *number <= high;
}

}  // namespace korvex
