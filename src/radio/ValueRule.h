#pragma once

#include <string_view>

namespace korvex {

/// Which texts the radio takes as the value of a setting. The radio is strict: the number of characters must fit, a
/// signed value must show its sign, and nothing may stand beside the digits.
struct ValueRule {
    int width = 0;  ///< characters, the sign included; 0: any number of one to five characters
    int low = 0;
    int high = 0;
    bool hasSign = false;
    std::string_view choices = {};  ///< when not empty: exactly one of these characters, the rest says nothing

    bool accepts(std::string_view value) const;
};

namespace rules {

constexpr ValueRule digits(int width, int low, int high) {
    return {width, low, high};
}
constexpr ValueRule withSign(int width, int low, int high) {
    return {width, low, high, true};
}
constexpr ValueRule oneOf(std::string_view choices) {
    return {1, 0, 0, false, choices};
}
constexpr ValueRule offOn() {
    return digits(1, 0, 1);
}
constexpr ValueRule level() {
    return digits(3, 0, 255);
}
constexpr ValueRule anyNumber() {
    return {};
}

}  // namespace rules

}  // namespace korvex
