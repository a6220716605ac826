#pragma once

#include <array>
#include <string>

#include "base/WireText.h"

namespace korvex {

/// The CW message memories of the radio.
inline constexpr int keyerMemories = 5;
/// A memory ends here. A longer text is sent all the same; the radio refuses it.
inline constexpr std::size_t longestKeyerText = 50;

/// The texts of memories 1 to 5.
using KeyerTexts = std::array<WireText, keyerMemories>;

inline WireText& keyerText(KeyerTexts& texts, int memory) {
    return texts.at(static_cast<std::size_t>(memory - 1));
}
inline const WireText& keyerText(const KeyerTexts& texts, int memory) {
    return texts.at(static_cast<std::size_t>(memory - 1));
}

/// "KM1": how the command and the answer of a memory begin.
inline std::string keyerHead(int memory) {
    return "KM" + std::to_string(memory);
}
/// "KM1;": what reads a memory.
inline std::string keyerReadCommand(int memory) {
    return keyerHead(memory) + ";";
}
/// "KM1CQ DE;": what writes a memory. With an empty text it is a query, and the radio keeps what it has.
inline std::string keyerWriteCommand(int memory, const WireText& text) {
    return keyerHead(memory) + text.bytes() + ";";
}

/// Why a text cannot be sent as one command; empty when it can.
std::string whyNotSendable(const WireText& text);
/// Why a keyer file cannot hold a text so that it is sent again; empty when it can.
std::string whyNotStorable(const WireText& text);

}  // namespace korvex
