#include "cat/TransmitGuard.h"

#include <algorithm>
#include <array>

#include "base/NumberText.h"

namespace korvex {

bool keysTransmitter(std::string_view wire) {
    constexpr std::array<std::string_view, 6> keying = {"TX1", "TX2", "MX1", "VX1", "KY", "AC002"};
    while (!wire.empty()) {
        while (!wire.empty() && static_cast<unsigned char>(wire.front()) <= ' ') wire.remove_prefix(1);
        const auto command = wire.substr(0, wire.find(';'));
        for (const auto key : keying) {
            const bool same =
                command.size() >= key.size() && std::equal(key.begin(), key.end(), command.begin(),
                                                           [](char wanted, char c) { return wanted == asciiUpper(c); });
            if (same) return true;
        }
        wire.remove_prefix(std::min(command.size() + 1, wire.size()));
    }
    return false;
}

}  // namespace korvex
