#include "platform/posix/TtyFormat.h"

// The same flags as in TtyLine.
#include <asm/termbits.h>
#include <cstdlib>

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

/// Divisors do not meet every speed exactly; a receiver stands about 3 % at ten bits a character.
bool isNear(speed_t got, int wanted) {
    return std::abs(static_cast<long>(got) - wanted) * 100L <= wanted * 3L;
}

}  // namespace

unsigned withFormat(unsigned flags, const LineSettings& settings, Handshaking handshaking) {
    return (flags & ~formatBits) | wantedFlags(settings, handshaking);
}

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

}  // namespace korvex::tty
