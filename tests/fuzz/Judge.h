#pragma once

#include <string>
#include <string_view>

#include "radio/SimulatedRadio.h"

namespace korvex::fuzz {

inline bool isControl(char c) {
    return static_cast<unsigned char>(c) < ' ' || static_cast<unsigned char>(c) >= 0x7f;
}

inline std::string withoutGaps(std::string_view sent) {
    std::string text;
    for (const char c : sent) {
        if (!isControl(c) && c != ' ') text += c;
    }
    return text;
}

/// Each command without what stands before a control character in it.
inline std::string withoutFragments(std::string_view sent) {
    std::string text;
    std::string command;
    for (const char c : sent) {
        if (isControl(c)) {
            command.clear();
            continue;
        }
        if (c != ' ') command += c;
        if (c == ';') text += command;
        if (c == ';') command.clear();
    }
    return text;
}

inline bool isKeyedBy(const std::string& heard) {
    SimulatedRadio radio;
    radio.answer(heard);
    return radio.timesKeyed > 0 || radio.state.get("VX") != "0";
}

/// What radios would make of everything that was sent to them; empty when they all stay receiving. Beside the simulated
/// one there are two of another make-up, because nobody knows which the FT-2000 is: one that takes no notice of line
/// ends and blanks inside a command, and one that begins anew behind a line end.
inline std::string keysTransmitterWith(std::string_view sent) {
    if (isKeyedBy(std::string(sent))) return "the radio was keyed";
    if (isKeyedBy(withoutGaps(sent))) return "a radio that passes over line ends and blanks was keyed";
    if (isKeyedBy(withoutFragments(sent))) return "a radio that begins anew at a line end was keyed";
    return "";
}

}  // namespace korvex::fuzz
