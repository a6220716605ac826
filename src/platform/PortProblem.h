#pragma once

#include <string>

#include "base/RuntimeError.h"

/// Why a serial device cannot be used, in words that tell what to do. `device` is the real device, links resolved.
namespace korvex::portproblem {

RuntimeError gone(const std::string& device);
RuntimeError noPermission(const std::string& device);
/// Names the program that holds the device, where it can be found out.
RuntimeError held(const std::string& device);
RuntimeError notSupported(const std::string& device, const std::string& what);
RuntimeError noSerialPort(const std::string& device, const std::string& reason);
RuntimeError unplugged(const std::string& device);

/// Whether another program has the device, locked or open; `held` then. Of a pseudo terminal only locks tell, because
/// whoever made it has it open, too.
Failure heldByOther(const std::string& device);

/// What can be told without opening. Opening moves RTS and DTR, which can key the radio, and sets the line's format,
/// which spoils another program's traffic: neither is done for a device that cannot be used anyway.
Failure beforeOpening(const std::string& device);

}  // namespace korvex::portproblem
