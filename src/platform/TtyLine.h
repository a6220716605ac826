#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "platform/LineSettings.h"
#include "platform/SerialDevice.h"

/// What the handle of an open serial device can be asked for and told directly: the serial library believes that every
/// format it sets is taken, knows one handshaking at a time, and complains where a pty has no modem lines.
namespace korvex::tty {

/// Sets format and handshaking and reads back what the device made of them. Empty when all of it was taken, else what
/// the device cannot do, in words ("7 data bits"). A pseudo terminal takes every format, as it makes no bits of its
/// bytes.
std::string applyFormat(int handle, const LineSettings& settings, Handshaking handshaking);

enum class OutputLine { Rts, Dtr };
/// Devices without that line (a pty) are passed over.
void setLine(int handle, OutputLine line, bool raised);

struct ModemLines {
    bool cts = false;
    bool dsr = false;
    bool carrier = false;
};
/// Nothing where the device has no modem lines.
std::optional<ModemLines> modemLines(int handle);

/// Bytes that the system has taken and not yet sent.
std::size_t unsentInSystem(int handle);

/// The device behind the handle is unplugged or hung up.
bool isGone(int handle);

/// Keeps every program that locks in the same way off the device while the handle is open; false when another has it.
bool lock(int handle);

}  // namespace korvex::tty
