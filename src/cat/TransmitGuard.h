#pragma once

#include <string_view>

namespace korvex {

/// Whether a line of a data file holds a command that makes the radio transmit: TX1 TX2 (transmit), MX1 (MOX), VX1
/// (VOX: the next noise keys it), KY (plays a keyer memory on the air), AC002 (starts the antenna tuner). Letters of
/// either case, as the radio takes them; blanks and line ends inside a command count for nothing, because nobody knows
/// that they do for every radio. For the same reason a line that ends in the beginning of such a command counts: the
/// next line could complete it.
bool keysTransmitter(std::string_view wire);

}  // namespace korvex
