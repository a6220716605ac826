#include "base/Printable.h"

#include "base/CodePage.h"

namespace korvex {

namespace {

constexpr std::string_view replacement = "\xEF\xBF\xBD";

/// U+2400 and the 32 behind it are the pictures of the control characters; delete has its own.
std::string picture(unsigned char c) {
    const int place = c == 0x7F ? 0x21 : c;
    return "\xE2\x90" + std::string(1, static_cast<char>(0x80 + place));
}

std::string ascii(char c) {
    const bool control = (c < ' ' && c != '\n' && c != '\t') || c == 0x7F;
    return control ? picture(static_cast<unsigned char>(c)) : std::string(1, c);
}

/// How many bytes the first character has; none when it is no UTF-8.
std::size_t characterLength(std::string_view text) {
    constexpr std::size_t longest = 4;
    for (std::size_t length = 1; length <= longest && length <= text.size(); ++length) {
        if (isUtf8(text.substr(0, length))) return length;
    }
    return 0;
}

/// The control characters above 127 have no pictures.
bool isUpperControl(std::string_view character) {
    return character.size() == 2 && character[0] == '\xC2' && static_cast<unsigned char>(character[1]) < 0xA0;
}

}  // namespace

std::string printable(std::string_view utf8) {
    std::string text;
    while (!utf8.empty()) {
        const std::size_t length = characterLength(utf8);
        const auto character = utf8.substr(0, length);
        if (length == 0 || isUpperControl(character)) {
            text += replacement;
        } else if (length > 1) {
            text += character;
        } else if (!utf8.starts_with("\r\n")) {
            text += ascii(utf8.front());
        }
        utf8.remove_prefix(length == 0 ? 1 : length);
    }
    return text;
}

std::string printableLine(std::string_view utf8) {
    const auto end = utf8.find_first_of("\r\n");
    if (end == std::string_view::npos) return printable(utf8);
    const auto lineEnd = static_cast<unsigned char>(utf8[end]);
    return printable(utf8.substr(0, end)) + picture(lineEnd) + printableLine(utf8.substr(end + 1));
}

PrintableStream::Buffer::int_type PrintableStream::Buffer::overflow(int_type c) {
    if (traits_type::eq_int_type(c, traits_type::eof())) return traits_type::not_eof(c);
    m_line += traits_type::to_char_type(c);
    if (m_line.back() == '\n' && sync() != 0) return traits_type::eof();
    return c;
}

int PrintableStream::Buffer::sync() {
    m_target << printable(m_line) << std::flush;
    m_line.clear();
    return m_target.good() ? 0 : -1;
}

}  // namespace korvex
