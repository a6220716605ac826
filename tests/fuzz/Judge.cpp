#include "fuzz/Judge.h"

#include "radio/SimulatedRadio.h"

namespace korvex::fuzz {

namespace {

bool isControl(char c) {
    return static_cast<unsigned char>(c) < ' ' || static_cast<unsigned char>(c) >= 0x7f;
}

std::string withoutGaps(std::string_view sent) {
    std::string text;
    for (const char c : sent) {
        if (!isControl(c) && c != ' ') text += c;
    }
    return text;
}

/// Each command without what stands before a control character in it.
std::string withoutFragments(std::string_view sent) {
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

bool isKeyedBy(const std::string& heard) {
    SimulatedRadio radio;
    radio.answer(heard);
    return radio.timesKeyed > 0 || radio.state.get("VX") != "0";
}

}  // namespace

std::string keysTransmitterWith(std::string_view sent) {
    if (isKeyedBy(std::string(sent))) return "the radio was keyed";
    if (isKeyedBy(withoutGaps(sent))) return "a radio that passes over line ends and blanks was keyed";
    if (isKeyedBy(withoutFragments(sent))) return "a radio that begins anew at a line end was keyed";
    return "";
}

}  // namespace korvex::fuzz
