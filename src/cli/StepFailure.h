#pragma once

#include <string>
#include <vector>

#include "cli/Job.h"

namespace korvex::cli {

/// What is printed about a step that has failed, beside what a box has said already, and the exit code of it.
struct StepFailure {
    ExitCode code;
    std::vector<std::string> reasons;
};

StepFailure failureOf(const Step& step, TransferEnd end, Program& program);

}  // namespace korvex::cli
