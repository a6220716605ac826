#pragma once

#include <optional>
#include <string>

namespace korvex {

/// A running program that has a serial device.
struct PortHolder {
    int pid = 0;
    std::string program;  ///< "minicom"
};

/// The lock file that programs of the old school lay for a device: "/var/lock/LCK..ttyUSB0".
std::string lockFileOf(const std::string& device);

/// Whether something lies there, and whether it is what no program lays as a lock: a pipe, a link, a folder, a file of
/// many pages. Any user may put it there, and whoever reads it may wait for ever.
bool hasLockFile(const std::string& device);
bool hasOddLockFile(const std::string& device);

/// Who has locked the device: with a lock file, left-behind ones not counted, or with flock.
std::optional<PortHolder> lockHolder(const std::string& device);

/// Who has locked the device, else who has it open. Other users' programs are in sight only while they lock.
std::optional<PortHolder> holderOf(const std::string& device);

}  // namespace korvex
