#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvex {

inline constexpr std::string_view crLf = "\r\n";

/// Reads text values out of a data file's content (wire text) one after the other. A value ends at a comma or at a line
/// end (CR LF, LF or CR, also the file's end without one); blanks around it are dropped; a value that begins with a
/// double quote runs to the next double quote, whatever stands between, and the quotes are dropped. An empty line is an
/// empty value.
class FieldReader {
public:
    explicit FieldReader(std::string_view content) : m_rest(content) {}

    /// The next value; nothing when the content is used up.
    std::optional<std::string_view> next();

private:
    std::string_view takeQuoted();
    std::string_view takePlain();
    void skipSeparator();

    std::string_view m_rest;
};

}  // namespace korvex
