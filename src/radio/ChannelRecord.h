#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "radio/RadioState.h"

namespace korvex {

/// The text that MR, MW, IF and OI share behind the channel number: frequency, clarifier, mode, source, tone, shift.
namespace channelrecord {

inline constexpr std::size_t length = 21;
inline constexpr std::size_t sourcePosition = 16;

/// The record of what `values` are tuned to; the digit that tells the source is 0.
std::string compose(const Values& values);

/// The tuning that a record stands for; nothing when a field is not one that the radio takes. The source is not looked
/// at.
std::optional<Values> parse(std::string_view record);

}  // namespace channelrecord

}  // namespace korvex
