#pragma once

#include <string>
#include <string_view>

namespace korvex::fuzz {

/// What a radio would make of everything that was sent to it; empty when it stays receiving. A radio that takes no
/// notice of line ends and blanks inside a command is counted in: nobody knows that the FT-2000 does.
std::string keysTransmitterWith(std::string_view sent);

}  // namespace korvex::fuzz
