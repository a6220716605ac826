#pragma once

#include "cat/Outcome.h"
#include "platform/SaveDialog.h"

namespace korvex {

/// How a save ended, for those who wait for an operation of which it is the last step.
inline Outcome::Kind outcomeOf(const Saved& saved) {
    if (saved.file) return Outcome::Kind::Done;
    return saved.failure ? Outcome::Kind::FileFailed : Outcome::Kind::Cancelled;
}

}  // namespace korvex
