#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "eq/EqItems.h"

/// What the three bands do to the microphone's signal. Each band is the peaking filter of R. Bristow-Johnson's
/// "Cookbook formulae for audio equalizer biquad filter coefficients" (W3C note "Audio EQ Cookbook"), in its analog
/// form
///     H(s) = (s² + s·A/Q + 1) / (s² + s/(A·Q) + 1),   s = j·f/centre,   A = 10^(gain/40)
/// with the radio's value as Q. The radio does not tell how it filters; the curve shows how centre, gain and bandwidth
/// go together, and is no measurement.
namespace korvex::eq {

/// dB at a frequency in Hz, all bands together. A band whose centre is OFF is flat.
double response(const EqValues& values, double hertz);

inline constexpr double lowestHertz = 50;
inline constexpr double highestHertz = 4000;
/// Where a frequency stands on the axis, from 0 to 1: each octave as wide as the next.
double placeOf(double hertz);
double hertzAt(double place);
inline constexpr std::array hertzTicks = {100, 200, 500, 1000, 2000, 3000};

/// `points` values in dB, from the lowest to the highest frequency in even steps on the axis; two points at least.
std::vector<double> curve(const EqValues& values, std::size_t points);

/// The dB axis, in whole tens: -20..+10, and more where bands that lie on each other need it.
struct LevelAxis {
    int lowest = -20;
    int highest = 10;
    static constexpr int step = 10;
    bool operator==(const LevelAxis&) const = default;
};
LevelAxis levelAxis(const std::vector<double>& curve, const std::vector<double>& other);

}  // namespace korvex::eq
