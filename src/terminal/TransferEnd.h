#pragma once

#include "cat/Outcome.h"

namespace korvex {

using TransferEnd = Outcome::Kind;

}  // namespace korvex
