#pragma once

#include <string>
#include <string_view>

namespace korvex {

/// The SHA-256 of wire text, in hexadecimal digits.
std::string sha256(std::string_view wire);

}  // namespace korvex
