#include "memory/DigitBox.h"

#include <algorithm>
#include <optional>

#include "base/NumberText.h"

namespace korvex {

namespace {

std::string digitsIn(std::string_view text) {
    std::string digits;
    std::copy_if(text.begin(), text.end(), std::back_inserter(digits), isDigit);
    return digits;
}

/// `digits` with zeros in front, or leading zeros taken away, to be exactly `count` long.
std::optional<std::string> fitted(std::string_view digits, std::size_t count) {
    while (digits.size() > count && digits.front() == '0') digits.remove_prefix(1);
    if (digits.size() > count) return std::nullopt;
    return std::string(count - digits.size(), '0').append(digits);
}

std::string shown(std::string_view pattern, std::string_view digits) {
    std::string text(pattern);
    auto next = digits.begin();
    for (char& c : text) {
        if (isDigit(c)) c = *next++;
    }
    return text;
}

}  // namespace

DigitBox::DigitBox(std::string_view pattern)
    : text(std::string(pattern)), m_pattern(pattern), m_count(digitsIn(pattern).size()) {}

std::string DigitBox::digits() const {
    return digitsIn(text.get());
}

void DigitBox::setDigits(std::string_view digits) {
    const bool isNumber = std::all_of(digits.begin(), digits.end(), isDigit);
    const auto all = isNumber ? fitted(digits, m_count) : std::nullopt;
    text = all ? shown(m_pattern, *all) : m_pattern;
}

void DigitBox::type(char key) {
    if (isDigit(key)) setDigits(digits().substr(1) + key);
}

void DigitBox::backspace() {
    std::string kept = digits();
    kept.pop_back();
    setDigits(kept);
}

bool DigitBox::paste(std::string_view pasted) {
    constexpr std::string_view separators = ",.' ";
    const bool readable = std::all_of(pasted.begin(), pasted.end(), [&](char c) {
        return isDigit(c) || separators.find(c) != std::string_view::npos;
    });
    const std::string found = digitsIn(pasted);
    if (!readable || found.empty() || !fitted(found, m_count)) return false;
    setDigits(found);
    return true;
}

}  // namespace korvex
