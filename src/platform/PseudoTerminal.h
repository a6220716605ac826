#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/RuntimeError.h"

namespace korvex {

/// A device that other programs open like a serial port, seen from its other side. Never blocks.
class PseudoTerminal {
public:
    virtual ~PseudoTerminal() = default;

    virtual std::string deviceName() const = 0;
    /// The descriptors to watch for reading: one of them has something when a program has written or has left.
    virtual std::vector<int> descriptors() const = 0;
    virtual std::string read() = 0;
    /// What nobody reads is lost once the system's buffer is full.
    virtual void write(std::string_view bytes) = 0;
    /// Whether a program has left since the last call and no other has the device open.
    virtual bool lastUserLeft() = 0;
};

/// `link`: a symbolic link that leads to the device for as long as it stands; empty for none. Fails where the system
/// has no such devices, and when something that is no link stands there already.
Result<std::unique_ptr<PseudoTerminal>> openPseudoTerminal(const std::string& link);

}  // namespace korvex
