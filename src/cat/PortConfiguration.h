#pragma once

#include <string_view>

#include "base/RuntimeError.h"
#include "platform/MSComm.h"
#include "platform/SettingsStore.h"

namespace korvex {

/// The stored serial port configuration: four texts in the section "Einstellungen". The terminal's port and the
/// equalizer's are set from the same keys.
namespace portkeys {
inline constexpr std::string_view settings = "Einstellungen";   ///< "4800,n,8,2"
inline constexpr std::string_view commPort = "COM-Anschluß";    ///< "1" to "20"
inline constexpr std::string_view handshaking = "Handshaking";  ///< "0" to "3"
inline constexpr std::string_view echo = "Echo";                ///< "True" or "False"
}  // namespace portkeys

/// Sets the port from the store; keys that are missing or empty leave it as it is, and so does a port number that is
/// none. RTS and DTR are set low. Gives back why a stored settings string or handshaking value was refused; what comes
/// after it has then not been applied.
Failure applyStoredPort(const SettingsStore& store, MSComm& port);

/// Stores what the port reports of itself, and the echo option.
void storePort(SettingsStore& store, const MSComm& port, bool echo);

bool storedEcho(const SettingsStore& store);

}  // namespace korvex
