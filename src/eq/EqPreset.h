#pragma once

#include <string>
#include <string_view>

#include "base/RuntimeError.h"
#include "eq/EqItems.h"

namespace korvex {

/// A preset file: one set of the equalizer in words that a person can read, ending ".eqp".
///
///     Korvex equalizer preset 1
///     Low center frequency = 300
///     Low gain = +05
///     ...
///
/// ASCII, CR LF (LF is read, too), the nine items in the order of the radio's menus; "OFF" for a band that is off.
std::string eqPresetText(const EqValues& values);

/// Refused, with the line in words: another first line, an item that is missing, elsewhere or twice, and a value that
/// its slider could not give.
Result<EqValues> parseEqPreset(std::string_view file);

}  // namespace korvex
