#pragma once

#include <string>

namespace korvex {

/// The wall clock's date and time here: "2026-11-22 23:42:54".
std::string localTimeOfDay();

}  // namespace korvex
