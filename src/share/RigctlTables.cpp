#include "share/RigctlTables.h"

#include <algorithm>
#include <array>

namespace korvex {

namespace {

struct Mode {
    char code;
    std::string_view name;
};

constexpr std::array<Mode, 13> modes = {{
    {'1', "LSB"},
    {'2', "USB"},
    {'3', "CW"},
    {'4', "FM"},
    {'5', "AM"},
    {'6', "RTTY"},
    {'7', "CWR"},
    {'8', "PKTLSB"},
    {'9', "RTTYR"},
    {'A', "PKTFM"},
    {'B', "FMN"},
    {'C', "PKTUSB"},
    {'D', "AMN"},
}};

// Modes are hamlib's bits (AM 0x1, CW 0x2, USB 0x4, LSB 0x8, RTTY 0x10, FM 0x20, CWR 0x80, RTTYR 0x100, PKTLSB 0x400,
// PKTUSB 0x800, PKTFM 0x1000), VFOs 0x1 and 0x2. Lists end with a row of zeros.
constexpr std::string_view state =
    "1\n1029\n0\n"
    "30000.000000 60000000.000000 0x1dbf -1 -1 0x3 0x3\n"
    "0 0 0 0 0 0 0\n"
    "1800000.000000 54000000.000000 0x1dbf 5000 100000 0x3 0x3\n"
    "0 0 0 0 0 0 0\n"
    "0x1dbf 1\n"
    "0 0\n"
    "0x1dbf 0\n"
    "0 0\n"
    "9999\n9999\n1000\n0\n"  // RIT, XIT and IF shift at most, in Hz; announcements
    "10 17 \n"               // preamplifiers, dB
    "6 12 18 \n"             // attenuators, dB
    "0x0\n0x0\n0x0\n0x0\n0x0\n0x0\n"
    "vfo_ops=0x0\n"
    "ptt_type=0x1\n"
    "targetable_vfo=0x3\n"  // frequency and mode: else the client switches VFOs whenever it connects
    "has_set_vfo=1\n"
    "has_get_vfo=1\n"
    "has_set_freq=1\n"
    "has_get_freq=1\n"
    "has_set_conf=0\n"
    "has_get_conf=0\n"
    "has_power2mW=0\n"
    "has_mW2power=0\n"
    "timeout=2000\n"
    "done\n";

}  // namespace

std::string_view rigctlModeOf(char code) {
    const auto* found = std::find_if(modes.begin(), modes.end(), [&](const Mode& mode) { return mode.code == code; });
    return found == modes.end() ? "" : found->name;
}

std::optional<char> codeOfRigctlMode(const std::string& name) {
    const auto* found = std::find_if(modes.begin(), modes.end(), [&](const Mode& mode) { return mode.name == name; });
    if (found == modes.end()) return std::nullopt;
    return found->code;
}

std::string_view rigctlState() {
    return state;
}

}  // namespace korvex
