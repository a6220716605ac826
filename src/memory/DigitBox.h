#pragma once

#include <string>
#include <string_view>

#include "base/Property.h"

namespace korvex {

/// An entry box that always holds the same number of digits and shows them with apostrophes between, as a frequency
/// ("14'250'000") or a clarifier offset ("1'234"). It works like the register of a pocket calculator: a digit typed
/// comes in on the right, the others move left and the leftmost is lost. The caret has no part in it.
///
/// What else a user may try:
///  - backspace takes the last digit back: all move right, a zero comes in on the left
///  - delete and cut set every digit to zero
///  - comma, point, apostrophe and blank do nothing, so that "14.250.000" can be typed as it is read
///  - pasting replaces the whole number, as if it had been typed into an empty box: in Hz, with those separators
///    anywhere. Text with anything else in it ("14 MHz", "-5") or with too many digits changes nothing.
class DigitBox {
public:
    /// `pattern` shows what zero looks like: "00'000'000".
    explicit DigitBox(std::string_view pattern);

    /// What the box shows.
    Property<std::string> text;

    std::string digits() const;
    /// Fewer digits get zeros in front. Anything that is no number, or does not fit, shows zero.
    void setDigits(std::string_view digits);

    void type(char key);
    void backspace();
    void clear() { setDigits({}); }
    /// False when the text cannot be taken.
    bool paste(std::string_view text);

private:
    std::string m_pattern;
    std::size_t m_count;
};

inline constexpr std::string_view frequencyPattern = "00'000'000";
inline constexpr std::string_view clarifierPattern = "0'000";

}  // namespace korvex
