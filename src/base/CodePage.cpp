#include "base/CodePage.h"

#include <algorithm>
#include <array>

namespace korvex {

namespace {

constexpr std::array<char16_t, 32> upperHalfStart = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                     0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                     0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                     0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

void appendUtf8(std::string& out, char32_t c) {
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | (c >> 6));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        out += static_cast<char>(0xE0 | (c >> 12));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    }
}

struct Decoded {
    std::optional<char32_t> character;  // nothing: not valid UTF-8
    std::size_t length = 1;
};

std::size_t sequenceLength(unsigned char lead) {
    if (lead < 0x80) return 1;
    if (lead >= 0xC2 && lead < 0xE0) return 2;
    if (lead >= 0xE0 && lead < 0xF0) return 3;
    if (lead >= 0xF0 && lead < 0xF5) return 4;
    return 0;
}

Decoded decodeFirst(std::string_view text) {
    const auto lead = static_cast<unsigned char>(text.front());
    const std::size_t length = sequenceLength(lead);
    if (length == 0 || text.size() < length) return {};
    if (length == 1) return {lead, 1};
    char32_t c = lead & (0x7F >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const auto next = static_cast<unsigned char>(text[i]);
        if ((next & 0xC0) != 0x80) return {};
        c = (c << 6) | (next & 0x3F);
    }
    constexpr std::array<char32_t, 5> smallest = {0, 0, 0x80, 0x800, 0x10000};
    if (c < smallest.at(length)) return {};
    return {c, length};
}

std::optional<char> wireByte(char32_t c) {
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<char>(c);
    const auto* found = std::find(upperHalfStart.begin(), upperHalfStart.end(), c);
    if (found == upperHalfStart.end()) return std::nullopt;
    return static_cast<char>(0x80 + (found - upperHalfStart.begin()));
}

}  // namespace

char32_t unicodeFromWire(unsigned char byte) {
    return byte >= 0x80 && byte < 0xA0 ? upperHalfStart.at(byte - 0x80U) : char32_t{byte};
}

std::string utf8FromWire(std::string_view wire) {
    std::string out;
    out.reserve(wire.size());
    for (const char c : wire) appendUtf8(out, unicodeFromWire(static_cast<unsigned char>(c)));
    return out;
}

std::optional<std::string> wireFromUtf8(std::string_view utf8) {
    std::string out;
    out.reserve(utf8.size());
    while (!utf8.empty()) {
        const Decoded first = decodeFirst(utf8);
        if (!first.character) return std::nullopt;
        const auto byte = wireByte(*first.character);
        if (!byte) return std::nullopt;
        out += *byte;
        utf8.remove_prefix(first.length);
    }
    return out;
}

std::optional<std::string> firstInexpressible(std::string_view utf8) {
    while (!utf8.empty()) {
        const Decoded first = decodeFirst(utf8);
        if (!first.character || !wireByte(*first.character)) return std::string(utf8.substr(0, first.length));
        utf8.remove_prefix(first.length);
    }
    return std::nullopt;
}

bool isUtf8(std::string_view text) {
    while (!text.empty()) {
        const Decoded first = decodeFirst(text);
        if (!first.character) return false;
        text.remove_prefix(first.length);
    }
    return true;
}

std::size_t utf8Length(std::string_view utf8) {
    return static_cast<std::size_t>(
        std::count_if(utf8.begin(), utf8.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

}  // namespace korvex
