#pragma once

#include <string>
#include <vector>

#include "platform/PortNumbers.h"

namespace korvex {

/// The serial devices that are there now: on-board ports first, then adapters, each by number. Nothing is opened:
/// opening moves RTS and DTR, which can key the radio. Ports that the system only keeps names for, without any
/// hardware, are left out. `root` is where the system's files begin; tests put their own there.
std::vector<FoundPort> scanPorts(const std::string& root = "/");

}  // namespace korvex
