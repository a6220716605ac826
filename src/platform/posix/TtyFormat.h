#pragma once

#include <string>

#include "platform/LineSettings.h"

/// Data formats as the flags of termios (c_cflag).
namespace korvex::tty {

/// `flags` with the data format and RTS handshaking in place of what they had of those.
unsigned withFormat(unsigned flags, const LineSettings& settings, Handshaking handshaking);

/// What no serial chip does, in words ("4 data bits"); empty when there is nothing.
std::string impossibleFormat(const LineSettings& settings);
/// What a device, by the flags and the speed that it tells afterwards, did not take; empty when it took everything.
std::string notTaken(unsigned flags, unsigned speed, const LineSettings& settings, Handshaking handshaking);

}  // namespace korvex::tty
