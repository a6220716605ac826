#include "platform/TtyLine.h"

// The kernel's own header, for speeds by number; it excludes <termios.h>.
#include <asm/termbits.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

#include "platform/posix/TtyFormat.h"

namespace korvex::tty {

namespace {

void setXonXoff(termios2& line, bool on) {
    constexpr cc_t xon = 0x11;
    constexpr cc_t xoff = 0x13;
    line.c_iflag &= ~static_cast<tcflag_t>(IXON | IXOFF | IXANY);
    if (on) line.c_iflag |= IXON | IXOFF;
    line.c_cc[VSTART] = xon;
    line.c_cc[VSTOP] = xoff;
}

/// The far end of a pseudo terminal is a program: bytes come through whole, whatever format is set, and the kernel says
/// 8 bits without parity whatever was asked for.
bool isPseudoTerminal(int handle) {
    constexpr unsigned firstMajor = 136;  // Linux, Documentation/admin-guide/devices.txt
    constexpr unsigned lastMajor = 143;
    struct stat file {};
    if (::fstat(handle, &file) != 0) return false;
    const unsigned number = major(file.st_rdev);
    return number >= firstMajor && number <= lastMajor;
}

}  // namespace

std::string applyFormat(int handle, const LineSettings& settings, Handshaking handshaking) {
    const bool pseudo = isPseudoTerminal(handle);
    if (auto impossible = impossibleFormat(settings); !impossible.empty() && !pseudo) return impossible;
    termios2 line{};
    if (::ioctl(handle, TCGETS2, &line) != 0) return "a data format";
    line.c_cflag &= ~static_cast<tcflag_t>(CBAUD | CBAUD << IBSHIFT);
    line.c_cflag = withFormat(line.c_cflag, settings, handshaking) | BOTHER;
    line.c_ispeed = line.c_ospeed = static_cast<speed_t>(settings.speed);
    setXonXoff(line, handshaking == Handshaking::XonXoff || handshaking == Handshaking::RtsXonXoff);
    if (::ioctl(handle, TCSETS2, &line) != 0) return settings.text();
    termios2 got{};
    if (::ioctl(handle, TCGETS2, &got) != 0) return settings.text();
    return pseudo ? std::string() : notTaken(got.c_cflag, got.c_ospeed, settings, handshaking);
}

void setLine(int handle, OutputLine line, bool raised) {
    const int bit = line == OutputLine::Rts ? TIOCM_RTS : TIOCM_DTR;
    ::ioctl(handle, raised ? TIOCMBIS : TIOCMBIC, &bit);
}

std::optional<ModemLines> modemLines(int handle) {
    int bits = 0;
    if (::ioctl(handle, TIOCMGET, &bits) != 0) return std::nullopt;
    return ModemLines{(bits & TIOCM_CTS) != 0, (bits & TIOCM_DSR) != 0, (bits & TIOCM_CAR) != 0};
}

std::size_t unsentInSystem(int handle) {
    int count = 0;
    return ::ioctl(handle, TIOCOUTQ, &count) == 0 && count > 0 ? static_cast<std::size_t>(count) : 0;
}

bool isGone(int handle) {
    termios2 line{};
    return ::ioctl(handle, TCGETS2, &line) != 0;
}

bool lock(int handle) {
    return ::flock(handle, LOCK_EX | LOCK_NB) == 0;
}

}  // namespace korvex::tty
