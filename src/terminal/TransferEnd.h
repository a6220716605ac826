#pragma once

namespace korvex {

/// How a transfer between radio and computer ended; for those who wait for it, such as the command line.
enum class TransferEnd {
    Done,
    NoAnswer,    ///< the radio's answers did not come in time
    PortClosed,  ///< by the user, or because the device went away
    Cancelled,   ///< in the file dialog
    FileFailed,  ///< the user has been told why
};

}  // namespace korvex
