#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "base/RuntimeError.h"

/// Frequencies as persons read and write them. The radio has them as eight digits in Hz ("14250000").

namespace korvex {

/// What the radio tunes, in Hz.
inline constexpr int lowestTunable = 30'000;
inline constexpr int highestTunable = 60'000'000;

/// Whether the radio's digits name a frequency that it tunes.
bool isTunable(std::string_view digits);

/// "14.250.000" of the radio's digits: always MHz, kHz and Hz, so that it can be told from "14.250". Text that is no
/// number comes back as it is.
std::string groupedFrequency(std::string_view digits);

/// The radio's eight digits of what a person or a spreadsheet has written (UTF-8), or why not, in words.
///
///  - without a unit it is Hz, plain ("14250000") or in groups ("14.250.000", with comma, apostrophe or blank as well)
///  - with a unit, in whatever case: "14.25 MHz", "7050 kHz", "14,250.0 kHz", "3 573 000 Hz"
///
/// What could be read in two ways is refused, because it would go on the air: "50.125" without a unit, and "50.125
/// kHz".
Result<std::string> frequencyFromText(std::string_view text);

}  // namespace korvex
