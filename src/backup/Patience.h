#pragma once

namespace korvex {

/// How long those who have nobody to ask wait for the radio before they give a transfer up.
namespace patience {

inline constexpr int silenceMs = 5'000;      ///< without the end of an answer; noise could go on for ever
inline constexpr int standstillMs = 30'000;  ///< without a step forward; so could news of the dial

}  // namespace patience

}  // namespace korvex
