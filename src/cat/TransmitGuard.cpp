#include "cat/TransmitGuard.h"

#include <algorithm>
#include <array>
#include <string>

#include "base/NumberText.h"

namespace korvex {

namespace {

constexpr std::array<std::string_view, 6> keying = {"TX1", "TX2", "MX1", "VX1", "KY", "AC002"};

/// As a radio may hear it: in capitals, without line ends and blanks.
std::string closedUp(std::string_view wire) {
    std::string text;
    for (const char c : wire) {
        if (static_cast<unsigned char>(c) > ' ') text += asciiUpper(c);
    }
    return text;
}

bool keys(std::string_view command) {
    return std::any_of(keying.begin(), keying.end(), [command](auto key) { return command.starts_with(key); });
}

bool canStillKey(std::string_view beginning) {
    return !beginning.empty() &&
           std::any_of(keying.begin(), keying.end(), [beginning](auto key) { return key.starts_with(beginning); });
}

}  // namespace

bool keysTransmitter(std::string_view wire) {
    const std::string text = closedUp(wire);
    std::string_view rest = text;
    for (auto end = rest.find(';'); end != std::string_view::npos; end = rest.find(';')) {
        if (keys(rest.substr(0, end))) return true;
        rest.remove_prefix(end + 1);
    }
    return keys(rest) || canStillKey(rest);
}

}  // namespace korvex
