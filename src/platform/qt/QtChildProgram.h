#pragma once

#include "platform/ChildProgram.h"

namespace korvex {

/// Windows go on being drawn meanwhile, timers and the radio's line go on, and what a person does waits.
Result<ChildProgramEnd> runChildProgram(const ChildProgramOrder& order);

}  // namespace korvex
