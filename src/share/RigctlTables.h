#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace korvex {

/// hamlib's name of a mode code of the radio ('1' to 'D'); empty for a code that it does not have.
std::string_view rigctlModeOf(char code);
std::optional<char> codeOfRigctlMode(const std::string& name);

/// What hamlib's network client asks first: ranges, modes and abilities, in the order and the notation of protocol 1.
std::string_view rigctlState();

}  // namespace korvex
