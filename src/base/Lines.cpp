#include "base/Lines.h"

namespace korvex {

std::optional<std::string_view> FieldReader::next() {
    if (m_rest.empty()) return std::nullopt;
    while (m_rest.starts_with(' ')) m_rest.remove_prefix(1);
    return m_rest.starts_with('"') ? takeQuoted() : takePlain();
}

std::string_view FieldReader::takeQuoted() {
    m_rest.remove_prefix(1);
    const auto closing = m_rest.find('"');
    const auto value = m_rest.substr(0, closing);
    m_rest.remove_prefix(closing == std::string_view::npos ? m_rest.size() : closing + 1);
    const auto separator = m_rest.find_first_of(",\r\n");
    m_rest.remove_prefix(separator == std::string_view::npos ? m_rest.size() : separator);
    skipSeparator();
    return value;
}

std::string_view FieldReader::takePlain() {
    const auto end = m_rest.find_first_of(",\r\n");
    auto value = m_rest.substr(0, end);
    m_rest.remove_prefix(value.size());
    skipSeparator();
    while (value.ends_with(' ')) value.remove_suffix(1);
    return value;
}

void FieldReader::skipSeparator() {
    if (m_rest.starts_with(crLf)) {
        m_rest.remove_prefix(crLf.size());
    } else if (!m_rest.empty()) {
        m_rest.remove_prefix(1);
    }
}

}  // namespace korvex
