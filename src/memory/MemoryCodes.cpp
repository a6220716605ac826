#include "memory/MemoryCodes.h"

#include <array>

#include "base/NumberText.h"

namespace korvex {

namespace {

template <std::size_t N>
using Labels = std::array<std::string_view, N>;

constexpr Labels<12> modes = {"LSB",  "USB",   "CW",         "FM",     "AM",    "FSK RTTY(LSB)",
                              "CW-R", "PKT-L", "FSK-R(USB)", "PKT-FM", "FM(N)", "PKT-U"};

constexpr Labels<50> tones = {"67.0",  "69.3",  "71.9",  "74.4",  "77.0",  "79.7",  "82.5",  "85.4",  "88.5",  "91.5",
                              "94.8",  "97.4",  "100.0", "103.5", "107.2", "110.9", "114.8", "118.8", "123.0", "127.3",
                              "131.8", "136.5", "141.3", "146.2", "151.4", "156.7", "159.8", "162.2", "165.5", "167.9",
                              "171.3", "173.8", "177.3", "179.9", "183.5", "186.2", "189.9", "192.8", "196.6", "199.5",
                              "203.5", "206.5", "210.7", "218.1", "225.7", "229.1", "233.6", "241.8", "250.3", "254.1"};

constexpr Labels<3> ctcssModes = {"OFF", "ENC/DEC", "ENC"};
constexpr Labels<3> shifts = {"Simplex", "Plus", "Minus"};
constexpr Labels<2> switches = {"OFF", "ON"};
constexpr Labels<2> directions = {"+", "-"};

constexpr int toneDigits = 2;

}  // namespace

const CodeList modeTable{modes, "123456789ABC"};
const CodeList toneTable{tones, ""};
const CodeList ctcssModeTable{ctcssModes, "012"};
const CodeList shiftTable{shifts, "012"};
const CodeList clarifierTable{switches, "01"};
const CodeList directionTable{directions, "+-"};

std::string_view CodeList::label(int position) const {
    return position >= 0 && position < size() ? labels[static_cast<std::size_t>(position)] : std::string_view{};
}

std::string CodeList::code(int position) const {
    if (position < 0 || position >= size()) return {};
    return codes.empty() ? zeroPadded(position, toneDigits) : std::string(1, codes[static_cast<std::size_t>(position)]);
}

std::optional<int> CodeList::position(std::string_view code) const {
    if (code.empty()) return 0;
    if (codes.empty()) {
        const auto number = parseWhole(code);
        return number && *number >= 0 && *number < size() ? number : std::nullopt;
    }
    const auto found = code.size() == 1 ? codes.find(code) : std::string_view::npos;
    return found == std::string_view::npos ? std::nullopt : std::optional(static_cast<int>(found));
}

}  // namespace korvex
