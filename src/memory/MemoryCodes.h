#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace korvex {

/// The values that a code of the memory string stands for, as the editor lists them: a label for the user and a code
/// for the radio at every list position (from 0).
struct CodeList {
    std::span<const std::string_view> labels;
    std::string_view codes;  ///< one character for each label; empty: the code is the position with two digits

    int size() const { return static_cast<int>(labels.size()); }
    /// Empty for a position that the list does not have; `code` likewise.
    std::string_view label(int position) const;
    std::string code(int position) const;
    /// An empty code is the first entry. Nothing for a code that the list does not have.
    std::optional<int> position(std::string_view code) const;
};

/// "1".."9" and "A".."C": the position plus one, as the radio counts its modes.
extern const CodeList modeTable;
/// 50 tones in Hz, "00".."49".
extern const CodeList toneTable;
extern const CodeList ctcssModeTable;
extern const CodeList shiftTable;
/// Receive and transmit clarifier: off, on.
extern const CodeList clarifierTable;
/// The code is the label itself.
extern const CodeList directionTable;

}  // namespace korvex
