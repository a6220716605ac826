#include "platform/qt/TtyLine.h"

// The kernel's own header, for speeds by number; it excludes <termios.h>.
#include <asm/termbits.h>
#include <cstdlib>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

namespace korvex::tty {

namespace {

constexpr tcflag_t formatBits = CSIZE | CSTOPB | PARENB | PARODD | CMSPAR | CRTSCTS;

tcflag_t dataBitsFlag(int dataBits) {
    switch (dataBits) {
        case 5: return CS5;
        case 6: return CS6;
        case 7: return CS7;
        default: return CS8;
    }
}

tcflag_t parityFlags(Parity parity) {
    switch (parity) {
        case Parity::None: break;
        case Parity::Even: return PARENB;
        case Parity::Odd: return PARENB | PARODD;
        case Parity::Mark: return PARENB | PARODD | CMSPAR;
        case Parity::Space: return PARENB | CMSPAR;
    }
    return 0;
}

std::string parityName(Parity parity) {
    switch (parity) {
        case Parity::None: return "no parity";
        case Parity::Even: return "even parity";
        case Parity::Odd: return "odd parity";
        case Parity::Mark: return "mark parity";
        case Parity::Space: break;
    }
    return "space parity";
}

/// Asked for two stop bits at five data bits, the usual serial chips send one and a half; at more they never do.
bool stopBitsExist(const LineSettings& settings) {
    return settings.stopBits != StopBits::OneAndHalf || settings.dataBits == 5;
}

tcflag_t wantedFlags(const LineSettings& settings, Handshaking handshaking) {
    tcflag_t flags = dataBitsFlag(settings.dataBits) | parityFlags(settings.parity);
    if (settings.stopBits != StopBits::One) flags |= CSTOPB;
    if (handshaking == Handshaking::Rts || handshaking == Handshaking::RtsXonXoff) flags |= CRTSCTS;
    return flags;
}

void setXonXoff(termios2& line, bool on) {
    constexpr cc_t xon = 0x11;
    constexpr cc_t xoff = 0x13;
    line.c_iflag &= ~static_cast<tcflag_t>(IXON | IXOFF | IXANY);
    if (on) line.c_iflag |= IXON | IXOFF;
    line.c_cc[VSTART] = xon;
    line.c_cc[VSTOP] = xoff;
}

/// Divisors do not meet every speed exactly; a receiver stands about 3 % at ten bits a character.
bool isNear(speed_t got, int wanted) {
    return std::abs(static_cast<long>(got) - wanted) * 100L <= wanted * 3L;
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

std::string impossibleFormat(const LineSettings& settings) {
    if (settings.dataBits < 5) return std::to_string(settings.dataBits) + " data bits";
    return stopBitsExist(settings) ? "" : "1.5 stop bits";
}

std::string notTaken(unsigned flags, unsigned speed, const LineSettings& settings, Handshaking handshaking) {
    const tcflag_t different = (flags ^ wantedFlags(settings, handshaking)) & formatBits;
    if ((different & CSIZE) != 0) return std::to_string(settings.dataBits) + " data bits";
    if ((different & (PARENB | PARODD | CMSPAR)) != 0) return parityName(settings.parity);
    if ((different & CSTOPB) != 0) return "the wanted number of stop bits";
    if ((different & CRTSCTS) != 0) return "handshaking with RTS";
    if (!isNear(speed, settings.speed)) return std::to_string(settings.speed) + " bit/s";
    return {};
}

std::string applyFormat(int handle, const LineSettings& settings, Handshaking handshaking) {
    const bool pseudo = isPseudoTerminal(handle);
    if (auto impossible = impossibleFormat(settings); !impossible.empty() && !pseudo) return impossible;
    termios2 line{};
    if (::ioctl(handle, TCGETS2, &line) != 0) return "a data format";
    line.c_cflag &= ~(formatBits | static_cast<tcflag_t>(CBAUD | CBAUD << IBSHIFT));
    line.c_cflag |= wantedFlags(settings, handshaking) | BOTHER;
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

void dropUnsentInSystem(int handle) {
    ::ioctl(handle, TCFLSH, TCOFLUSH);
}

bool isGone(int handle) {
    termios2 line{};
    return ::ioctl(handle, TCGETS2, &line) != 0;
}

bool lock(int handle) {
    return ::flock(handle, LOCK_EX | LOCK_NB) == 0;
}

}  // namespace korvex::tty
