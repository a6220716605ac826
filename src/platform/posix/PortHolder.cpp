#include "platform/posix/PortHolder.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <signal.h>
#include <sstream>
#include <string_view>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include "base/NumberText.h"
#include "platform/posix/Descriptor.h"

namespace korvex {

namespace {

namespace fs = std::filesystem;

bool isRunning(pid_t pid) {
    return pid > 0 && (::kill(pid, 0) == 0 || errno == EPERM);
}

PortHolder holderWithName(pid_t pid) {
    std::ifstream file("/proc/" + std::to_string(pid) + "/comm");
    std::string program;
    std::getline(file, program);
    return {pid, program.empty() ? "unknown" : program};
}

/// Without waiting and without following a link.
std::string beginningOf(const std::string& path) {
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC));
    struct stat status {};
    if (!file.isOpen() || ::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode)) return {};
    std::array<char, 64> buffer{};
    const auto got = ::read(file.get(), buffer.data(), buffer.size());
    return got > 0 ? std::string(buffer.data(), static_cast<std::size_t>(got)) : std::string();
}

/// The number stands as text at the beginning of the first line, or, from a few old programs, as four bytes.
pid_t pidFromLockFile(const std::string& path) {
    const std::string text = beginningOf(path);
    std::string first;
    std::istringstream(text) >> first;
    if (const auto pid = parseWhole(first)) return *pid;
    pid_t binary = 0;
    if (text.size() == sizeof binary) std::memcpy(&binary, text.data(), sizeof binary);
    return binary;
}

/// A line of /proc/locks: "3: FLOCK  ADVISORY  WRITE 4711 00:05:123 0 EOF".
std::optional<PortHolder> flockHolder(const std::string& path) {
    struct stat device {};
    if (::stat(path.c_str(), &device) != 0) return std::nullopt;
    std::array<char, 64> wanted{};
    std::snprintf(wanted.data(), wanted.size(), "%02x:%02x:%lu", major(device.st_dev), minor(device.st_dev),
                  static_cast<unsigned long>(device.st_ino));
    std::ifstream locks("/proc/locks");
    for (std::string line; std::getline(locks, line);) {
        std::istringstream fields(line);
        std::string number, kind, advisory, mode, pid, file;
        fields >> number >> kind >> advisory >> mode >> pid >> file;
        if (kind != "FLOCK" || file != wanted.data()) continue;
        if (const auto id = parseWhole(pid); id && *id > 0) return holderWithName(*id);
    }
    return std::nullopt;
}

bool hasOpen(const fs::path& process, const struct stat& device) {
    std::error_code error;
    for (fs::directory_iterator handle(process / "fd", error), end; !error && handle != end; handle.increment(error)) {
        struct stat open {};
        if (::stat(handle->path().c_str(), &open) == 0 && S_ISCHR(open.st_mode) && open.st_rdev == device.st_rdev) {
            return true;
        }
    }
    return false;
}

std::optional<PortHolder> openHolder(const std::string& path) {
    struct stat device {};
    if (::stat(path.c_str(), &device) != 0) return std::nullopt;
    std::error_code error;
    for (fs::directory_iterator process("/proc", error), end; !error && process != end; process.increment(error)) {
        const auto pid = parseWhole(process->path().filename().string());
        if (pid && *pid != ::getpid() && hasOpen(process->path(), device)) return holderWithName(*pid);
    }
    return std::nullopt;
}

/// Our own number in the file says nothing: where numbers repeat at each start (containers) it is left from a crash.
std::optional<PortHolder> lockFileHolder(const std::string& device) {
    const pid_t pid = pidFromLockFile(lockFileOf(device));
    if (!isRunning(pid) || pid == ::getpid()) return std::nullopt;
    return holderWithName(pid);
}

}  // namespace

std::string lockFileOf(const std::string& device) {
    constexpr std::string_view folder = "/dev/";
    std::string name = device.starts_with(folder) ? device.substr(folder.size()) : device;
    std::replace(name.begin(), name.end(), '/', '_');
    return "/var/lock/LCK.." + name;
}

bool hasLockFile(const std::string& device) {
    struct stat status {};
    return ::lstat(lockFileOf(device).c_str(), &status) == 0;
}

bool hasOddLockFile(const std::string& device) {
    constexpr off_t longest = 4096;
    struct stat status {};
    if (::lstat(lockFileOf(device).c_str(), &status) != 0) return false;
    return !S_ISREG(status.st_mode) || status.st_size > longest;
}

std::optional<PortHolder> lockHolder(const std::string& device) {
    auto holder = lockFileHolder(device);
    return holder ? holder : flockHolder(device);
}

std::optional<PortHolder> holderOf(const std::string& device) {
    auto holder = lockHolder(device);
    return holder ? holder : openHolder(device);
}

}  // namespace korvex
