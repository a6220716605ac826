#pragma once

namespace korvex {

/// When an operation sends its next command.
enum class Pace {
    Every100Ms,  ///< at fixed intervals, whether or not the radio has answered: what the windows begin with
    Answered,    ///< when the answer has come; what is written is asked for at once, and so verified as it goes
};

}  // namespace korvex
