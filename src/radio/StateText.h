#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "radio/RadioState.h"

namespace korvex {

/// The radio's state as text that people can read and change: one setting a line, "key = value", "#" begins a comment
/// line. What is said is said as the CAT commands say it.
inline constexpr std::string_view stateHeading = "# A simulated FT-2000.";

std::string stateText(const RadioState& state);

/// Whether a file may be taken for such a text, and be replaced by one: it begins with the comment that every written
/// one begins with, or there is nothing in it but lines that make sense.
bool isStateText(std::string_view text);

/// Takes over every line that makes sense; what no line speaks of stays as it is. Gives a complaint for every line that
/// was passed over.
std::vector<std::string> loadState(RadioState& state, std::string_view text);

}  // namespace korvex
