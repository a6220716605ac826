#include "keyer/KeyerTexts.h"

#include <algorithm>

namespace korvex {

namespace {

bool isControl(char c) {
    return static_cast<unsigned char>(c) < ' ' || c == '\x7F';
}

}  // namespace

std::string whyNotSendable(const WireText& text) {
    const std::string& bytes = text.bytes();
    if (bytes.find(';') != std::string::npos) return "\";\" would end the command";
    const bool controls = std::any_of(bytes.begin(), bytes.end(), isControl);
    return controls ? "it holds a line break or another control character" : "";
}

std::string whyNotStorable(const WireText& text) {
    return text.bytes().find('|') == std::string::npos ? whyNotSendable(text)
                                                       : "\"|\" separates the columns of the file";
}

}  // namespace korvex
