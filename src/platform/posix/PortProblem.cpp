#include "platform/PortProblem.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <grp.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include "platform/posix/PortHolder.h"

namespace korvex::portproblem {

namespace {

std::string userName() {
    const auto* user = ::getpwuid(::geteuid());
    return user != nullptr ? user->pw_name : std::to_string(::geteuid());
}

/// The user was put into the group, but this session was begun before.
bool joinedButNotInForce(gid_t group) {
    const auto* user = ::getpwuid(::geteuid());
    if (user == nullptr) return false;
    int count = 256;
    std::vector<gid_t> groups(static_cast<std::size_t>(count));
    if (::getgrouplist(user->pw_name, user->pw_gid, groups.data(), &count) < 0) return false;
    groups.resize(static_cast<std::size_t>(count));
    return std::find(groups.begin(), groups.end(), group) != groups.end();
}

std::string wayToPermission(const struct stat& device) {
    const auto* group = ::getgrgid(device.st_gid);
    const bool groupMay = (device.st_mode & S_IRGRP) != 0 && (device.st_mode & S_IWGRP) != 0;
    if (group == nullptr || !groupMay) return " Only its owner may use it.";
    const std::string name = group->gr_name;
    if (joinedButNotInForce(device.st_gid)) {
        return " It belongs to the group \"" + name +
               "\", and you have joined that group: log out and in again, then it is yours to use.";
    }
    return " It belongs to the group \"" + name + "\". Join the group with \"sudo usermod -aG " + name + " " +
           userName() + "\", then log out and in again.";
}

std::string inTheWay(const std::string& device) {
    if (!hasLockFile(device)) {
        return " by another program. \"sudo fuser -v " + device + "\" tells which one.";
    }
    const std::string lockFile = lockFileOf(device);
    return ": the lock file " + lockFile + " stands in the way. If no program uses the port, \"sudo rm " + lockFile +
           "\" removes it.";
}

}  // namespace

RuntimeError gone(const std::string& device) {
    return {errors::PortGone, "There is no serial port " + device + ". Is the adapter plugged in?"};
}

RuntimeError noPermission(const std::string& device) {
    std::string text = "You have no permission to use the serial port " + device + ".";
    struct stat status {};
    if (::stat(device.c_str(), &status) == 0) text += wayToPermission(status);
    return {errors::PermissionDenied, text};
}

RuntimeError held(const std::string& device) {
    std::string text = "The serial port " + device + " is in use";
    // A lock file that nobody holds any more, and that is not ours to remove, is the reason, whoever has the port open.
    const auto holder = hasLockFile(device) ? lockHolder(device) : holderOf(device);
    if (!holder) {
        text += inTheWay(device);
    } else if (holder->pid == ::getpid()) {
        text += " by another window of this program.";
    } else {
        text += " by the program \"" + holder->program + "\" (process " + std::to_string(holder->pid) +
                "). Close that program, then try again.";
    }
    return {errors::PortAlreadyOpen, text};
}

RuntimeError notSupported(const std::string& device, const std::string& what) {
    return {errors::LineNotSupported, "The serial port " + device + " cannot do " + what + "."};
}

RuntimeError noSerialPort(const std::string& device, const std::string& reason) {
    return {errors::PortGone, device + " does not work as a serial port: " + reason + "."};
}

RuntimeError unplugged(const std::string& device) {
    return {errors::PortGone, "The serial port " + device + " is gone. Was the adapter unplugged?"};
}

Failure heldByOther(const std::string& device) {
    const auto holder = device.starts_with("/dev/pts/") ? lockHolder(device) : holderOf(device);
    if (!holder || holder->pid == ::getpid()) return {};
    return held(device);
}

Failure beforeOpening(const std::string& device) {
    struct stat status {};
    if (::stat(device.c_str(), &status) != 0) return errno == EACCES ? noPermission(device) : gone(device);
    if (!S_ISCHR(status.st_mode)) return noSerialPort(device, "it is no device");
    if (::faccessat(AT_FDCWD, device.c_str(), R_OK | W_OK, AT_EACCESS) != 0) return noPermission(device);
    // QSerialPort reads the lock file, too, whatever it is.
    if (hasOddLockFile(device) || lockHolder(device)) return held(device);
    return {};
}

}  // namespace korvex::portproblem
