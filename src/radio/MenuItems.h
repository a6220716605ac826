#pragma once

#include <string_view>

#include "radio/ValueRule.h"

namespace korvex {

/// What the radio takes as the value of a menu item, 1 to 149. Items whose values are not known for certain take any
/// number and keep it as it was set.
const ValueRule& menuRule(int number);

/// The value of a menu item as an owner may have left it.
std::string_view menuStartValue(int number);

/// Items that say something about the CAT line itself.
inline constexpr int menuCatRate = 28;
inline constexpr int menuCatTimeOut = 29;
inline constexpr int menuCatRts = 30;

}  // namespace korvex
