#pragma once

#include "platform/ProgramFolder.h"

namespace korvex {

/// The places of this program on this machine; `named` comes from the command line, empty for none.
ProgramPlaces programPlaces(const std::string& named = {});

}  // namespace korvex
