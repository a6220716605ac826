#include "base/TextEncoding.h"

#include <optional>

#include "base/CodePage.h"

namespace korvex {

namespace {

constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view littleEndianMark = "\xFF\xFE";
constexpr std::string_view bigEndianMark = "\xFE\xFF";

enum class Order { LittleEndian, BigEndian };

bool isIn(char32_t unit, char32_t first) {
    constexpr char32_t surrogates = 0x400;
    return unit >= first && unit < first + surrogates;
}

void append(std::string& utf8, char32_t character) {
    const auto tail = [&](int shift) { utf8 += static_cast<char>(0x80 | ((character >> shift) & 0x3F)); };
    if (character < 0x80) {
        utf8 += static_cast<char>(character);
        return;
    }
    if (character < 0x800) {
        utf8 += static_cast<char>(0xC0 | (character >> 6));
    } else if (character < 0x10000) {
        utf8 += static_cast<char>(0xE0 | (character >> 12));
        tail(6);
    } else {
        utf8 += static_cast<char>(0xF0 | (character >> 18));
        tail(12);
        tail(6);
    }
    tail(0);
}

/// Takes 16 bits at a time; nothing is taken past the end.
class Units {
public:
    Units(std::string_view content, Order order) : m_rest(content), m_order(order) {}
    bool empty() const { return m_rest.size() < 2; }
    bool halfLeft() const { return m_rest.size() == 1; }
    char32_t next() const {
        const auto byte = [this](std::size_t i) { return static_cast<unsigned char>(m_rest[i]); };
        const bool little = m_order == Order::LittleEndian;
        return static_cast<char32_t>(byte(little ? 0 : 1) | byte(little ? 1 : 0) << 8);
    }
    char32_t take() {
        const char32_t unit = next();
        m_rest.remove_prefix(2);
        return unit;
    }

private:
    std::string_view m_rest;
    Order m_order;
};

Result<std::string> utf8FromUtf16(std::string_view content, Order order) {
    constexpr char32_t high = 0xD800;
    constexpr char32_t low = 0xDC00;
    const RuntimeError half{errors::TypeMismatch, "this is not whole UTF-16"};
    std::string utf8;
    Units units(content, order);
    while (!units.empty()) {
        char32_t character = units.take();
        if (isIn(character, high)) {
            if (units.empty() || !isIn(units.next(), low)) return half;
            character = 0x10000 + ((character - high) << 10) + (units.take() - low);
        } else if (isIn(character, low)) {
            return half;
        }
        append(utf8, character);
    }
    if (units.halfLeft()) return half;
    return utf8;
}

std::optional<Order> utf16OrderOf(std::string_view content) {
    if (content.starts_with(littleEndianMark)) return Order::LittleEndian;
    if (content.starts_with(bigEndianMark)) return Order::BigEndian;
    if (content.size() < 2) return {};
    if (content[0] != '\0' && content[1] == '\0') return Order::LittleEndian;
    if (content[0] == '\0' && content[1] != '\0') return Order::BigEndian;
    return {};
}

}  // namespace

Result<std::string> utf8FromAnyEncoding(std::string_view content) {
    if (content.starts_with(utf8Mark)) content.remove_prefix(utf8Mark.size());
    if (const auto order = utf16OrderOf(content)) {
        const bool marked = content.starts_with(littleEndianMark) || content.starts_with(bigEndianMark);
        return utf8FromUtf16(content.substr(marked ? 2 : 0), *order);
    }
    return isUtf8(content) ? std::string(content) : utf8FromWire(content);
}

}  // namespace korvex
