#pragma once

#include <string_view>

namespace korvex {

/// Whether a command, with its ";", asks the radio for something. What sets is answered by nothing when all is well, so
/// whoever waits has to know. The forms are those of the radio's CAT command list.
bool asks(std::string_view wire);

}  // namespace korvex
