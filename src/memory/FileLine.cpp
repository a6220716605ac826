#include "memory/FileLine.h"

#include <algorithm>

#include "base/CodePage.h"

namespace korvex {

namespace {

std::string_view before(std::string_view content, std::string_view value) {
    return content.substr(0, static_cast<std::size_t>(value.data() - content.data()));
}

bool isLineEnd(char c) {
    return c == '\r' || c == '\n';
}

}  // namespace

int lineOf(std::string_view content, std::string_view value) {
    const auto text = before(content, value);
    int line = 1;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool insideCrLf = text[i] == '\n' && i > 0 && text[i - 1] == '\r';
        if (isLineEnd(text[i]) && !insideCrLf) ++line;
    }
    return line;
}

bool beginsItsLine(std::string_view content, std::string_view value) {
    auto text = before(content, value);
    while (text.ends_with(' ') || text.ends_with('"')) text.remove_suffix(1);
    return text.empty() || isLineEnd(text.back());
}

std::string lineInWords(std::string_view content, std::string_view value) {
    constexpr std::size_t shown = 30;
    const auto isControl = [](char c) { return static_cast<unsigned char>(c) < ' '; };
    const auto* const end = std::find_if(value.begin(), value.begin() + std::min(shown, value.size()), isControl);
    const std::string_view head(value.data(), static_cast<std::size_t>(end - value.begin()));
    return "Line " + std::to_string(lineOf(content, value)) + " (" + utf8FromWire(head) + ")";
}

}  // namespace korvex
