#include "platform/posix/Pty.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <poll.h>
#include <stdlib.h>
#include <sys/inotify.h>
#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <system_error>
#include <termios.h>
#include <unistd.h>

namespace korvex::pty {

namespace {

RuntimeError systemFailure(const std::string& what) {
    return {errors::DeviceIo, what + ": " + std::generic_category().message(errno)};
}

void makeRaw(int terminal) {
    termios settings{};
    if (tcgetattr(terminal, &settings) != 0) return;
    cfmakeraw(&settings);
    tcsetattr(terminal, TCSANOW, &settings);
}

std::string linkTarget(const std::string& path) {
    std::error_code ignored;
    return std::filesystem::read_symlink(path, ignored).string();
}

timespec asTimespec(double ms) {
    const double wait = std::max(ms, 0.0);
    timespec time{};
    time.tv_sec = static_cast<time_t>(wait / 1000);
    time.tv_nsec = static_cast<long>(std::fmod(wait, 1000) * 1e6);
    return time;
}

}  // namespace

Pty::~Pty() {
    removeLink();
    for (const int descriptor : {m_watch, m_slave, m_master}) {
        if (descriptor >= 0) ::close(descriptor);
    }
}

Failure Pty::open() {
    ::prctl(PR_SET_TIMERSLACK, 1UL);  // ns: characters of a fast line are 0.3 ms apart
    m_master = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (m_master < 0) return systemFailure("No pseudo terminal");
    std::array<char, 128> name{};
    if (grantpt(m_master) != 0 || unlockpt(m_master) != 0 || ptsname_r(m_master, name.data(), name.size()) != 0) {
        return systemFailure("No pseudo terminal");
    }
    m_deviceName = name.data();
    if (!openSlave()) return systemFailure(m_deviceName);
    makeRaw(m_slave);
    m_watch = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    watchSlave();
    return {};
}

bool Pty::openSlave() {
    m_slave = ::open(m_deviceName.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    return m_slave >= 0;
}

/// Without a watch the device works as well; only what a program leaves behind is not cleared away.
void Pty::watchSlave() {
    if (m_watch >= 0) m_watched = inotify_add_watch(m_watch, m_deviceName.c_str(), IN_CLOSE);
}

Failure Pty::makeLink(const std::string& path) {
    struct stat status {};
    const bool exists = ::lstat(path.c_str(), &status) == 0;
    if (exists && !S_ISLNK(status.st_mode)) {
        return RuntimeError{errors::PathFileAccess, path + " is there already and is no symbolic link."};
    }
    const std::string beside = path + "." + std::to_string(::getpid());
    if (::symlink(m_deviceName.c_str(), beside.c_str()) != 0) return systemFailure(path);
    if (::rename(beside.c_str(), path.c_str()) != 0) {
        const auto failure = systemFailure(path);
        ::unlink(beside.c_str());
        return failure;
    }
    m_link = path;
    return {};
}

void Pty::removeLink() {
    if (!m_link.empty() && linkTarget(m_link) == m_deviceName) ::unlink(m_link.c_str());
}

void Pty::wait(std::optional<double> ms, int other) const {
    const timespec longest = asTimespec(ms.value_or(0));
    std::array<pollfd, 3> watched = {{{m_master, POLLIN, 0}, {m_watch, POLLIN, 0}, {other, POLLIN, 0}}};
    ::ppoll(watched.data(), watched.size(), ms ? &longest : nullptr, nullptr);
}

std::vector<int> Pty::descriptors() const {
    std::vector<int> all{m_master};
    if (m_watch >= 0) all.push_back(m_watch);
    return all;
}

std::string Pty::read() {
    std::array<char, 4096> buffer{};
    const auto got = ::read(m_master, buffer.data(), buffer.size());
    return got > 0 ? std::string(buffer.data(), static_cast<std::size_t>(got)) : std::string();
}

/// What nobody reads is lost once the line's buffer is full, as on a real line.
void Pty::write(std::string_view text) {
    while (!text.empty()) {
        const auto written = ::write(m_master, text.data(), text.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return;
        text.remove_prefix(static_cast<std::size_t>(written));
    }
}

bool Pty::someoneLeft() const {
    bool left = false;
    alignas(inotify_event) std::array<char, 4096> buffer{};
    for (;;) {
        const auto got = m_watch >= 0 ? ::read(m_watch, buffer.data(), buffer.size()) : 0;
        if (got <= 0) return left;
        for (std::size_t at = 0; at < static_cast<std::size_t>(got);) {
            inotify_event event{};
            std::memcpy(&event, buffer.data() + at, sizeof event);
            at += sizeof event + event.len;
            left = left || (event.mask & IN_CLOSE) != 0;
        }
    }
}

/// Counting openings would go wrong, because like events are told once. But when our own end is closed for a moment,
/// the system tells whether anyone else has one; and if nobody has, it starts the terminal anew.
bool Pty::lastUserLeft() {
    const bool ownEndMissing = m_slave < 0;  // another program had locked the device
    if (!someoneLeft() && !ownEndMissing) return false;
    if (m_watch >= 0) inotify_rm_watch(m_watch, m_watched);
    // A program that locked the device and left has left the lock behind; only root's programs would get past it.
    if (m_slave >= 0) ::ioctl(m_slave, TIOCNXCL);
    if (m_slave >= 0) ::close(m_slave);
    pollfd master = {m_master, 0, 0};
    const bool alone = ::poll(&master, 1, 0) == 1 && (master.revents & POLLHUP) != 0;
    if (openSlave() && alone) makeRaw(m_slave);
    watchSlave();
    return alone;
}

}  // namespace korvex::pty
