#pragma once

#include <string>
#include <string_view>

namespace korvex::fuzz {

/// What radios would make of everything that was sent to them; empty when they all stay receiving. Beside the simulated
/// one there are two of another make-up, because nobody knows which the FT-2000 is: one that takes no notice of line
/// ends and blanks inside a command, and one that begins anew behind a line end.
std::string keysTransmitterWith(std::string_view sent);

}  // namespace korvex::fuzz
