#pragma once

#include <compare>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "base/CodePage.h"

namespace korvex {

/// Text as it goes over the line and stands in data files: one byte of Windows-1252 a character, all 256 kept. What a
/// person sees of it is made by `utf8`, and nothing is made of that again.
class WireText {
public:
    WireText() = default;
    explicit WireText(std::string bytes) : m_bytes(std::move(bytes)) {}
    explicit WireText(std::string_view bytes) : m_bytes(bytes) {}

    const std::string& bytes() const { return m_bytes; }
    bool empty() const { return m_bytes.empty(); }
    std::size_t size() const { return m_bytes.size(); }
    std::string utf8() const { return utf8FromWire(m_bytes); }

    bool operator==(const WireText&) const = default;
    auto operator<=>(const WireText&) const = default;

private:
    std::string m_bytes;
};

}  // namespace korvex
