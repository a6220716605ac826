#pragma once

#include <functional>

#include "desktop/StartOptions.h"

namespace korvex {

class Program;

/// Makes the machine's side, the program and its windows, shows the start window and runs until the program ends. Needs
/// a QApplication. `started` is called when the start window has been shown; the benches and the tests go on from
/// there.
int runProgram(const StartOptions& options, const std::function<void(Program&)>& started = {});

}  // namespace korvex
