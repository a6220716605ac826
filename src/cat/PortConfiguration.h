#pragma once

#include "base/RuntimeError.h"
#include "platform/MSComm.h"
#include "platform/Settings.h"

namespace korvex {

/// Sets the port from the store; a port number that is none leaves it as it is. RTS and DTR are set low. Gives back why
/// a stored settings string or handshaking value was refused; what comes after it has then not been applied.
Failure applyStoredPort(const SettingsStore& store, MSComm& port);

/// Stores what the port reports of itself, and the echo option.
void storePort(SettingsStore& store, const MSComm& port, bool echo);

}  // namespace korvex
