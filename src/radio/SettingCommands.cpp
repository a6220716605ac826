#include "base/NumberText.h"
#include "radio/Commands.h"
#include "radio/SimulatedRadio.h"

namespace korvex::commands {

namespace {

/// What "automatic" has chosen, by the mode of the VFO: AGC fast, middle or slow.
char chosenGain(std::string_view mode) {
    if (mode == "3" || mode == "7" || mode == "5" || mode == "D" || mode == "4" || mode == "B") return '4';
    return mode == "1" || mode == "2" ? '6' : '5';
}

/// Roofing filter 15, 6 or 3 kHz.
char chosenRoofing(std::string_view mode) {
    if (mode == "4" || mode == "B" || mode == "A") return '4';
    return mode == "5" || mode == "D" ? '5' : '6';
}

bool isVoiceCarrier(std::string_view mode) {
    return mode == "4" || mode == "5" || mode == "B" || mode == "D";
}

const std::string& modeOf(const SimulatedRadio& radio, char vfo) {
    return radio.state.get(vfo == '1' ? "MD1" : "MD0");
}

bool isRead(const std::string& answer) {
    return !answer.empty() && answer != refused;
}

}  // namespace

std::string setting(SimulatedRadio& radio, std::string_view command) {
    const Setting* found = settingOfCommand(command);
    if (found == nullptr) return std::string(refused);
    const auto value = command.substr(found->key.size());
    if (value.empty()) return std::string(command) + radio.state.get(*found) + ";";
    if (found->readOnly || !found->rule.accepts(value)) return std::string(refused);
    radio.state.set(*found, value);
    return {};
}

std::string antenna(SimulatedRadio& radio, std::string_view command) {
    auto& state = radio.state;
    if (command == "AN05") {
        state.set("AN5", state.get("AN5") == "0" ? "1" : "0");
        return {};
    }
    if (!command.starts_with("AN0")) return std::string(refused);
    if (command != "AN0") return setting(radio, command);
    return "AN0" + state.get("AN0") + (radio.quirks.antennaAnswerTellsRxAntenna ? state.get("AN5") : "") + ";";
}

std::string automaticGain(SimulatedRadio& radio, std::string_view command) {
    std::string answer = setting(radio, command);
    if (!isRead(answer) || !radio.quirks.automaticIsResolved) return answer;
    if (answer[3] == '4') answer[3] = chosenGain(modeOf(radio, answer[2]));
    return answer;
}

std::string roofingFilter(SimulatedRadio& radio, std::string_view command) {
    std::string answer = setting(radio, command);
    if (!isRead(answer) || !radio.quirks.automaticIsResolved) return answer;
    if (answer[3] == '0') answer[3] = chosenRoofing(modeOf(radio, answer[2]));
    return answer;
}

std::string autoNotch(SimulatedRadio& radio, std::string_view command) {
    const bool refuses = radio.quirks.refusesNotchInAmAndFm && isVoiceCarrier(modeOf(radio, '0'));
    if (refuses && command != "BC0") return std::string(refused);
    return setting(radio, command);
}

/// RC clears the clarifier's offset; RU and RD move it up and down by four digits of Hz.
std::string clarifierOffset(SimulatedRadio& radio, std::string_view command) {
    if (command == "RC") {
        radio.state.set("clarifier", "+0000");
        return {};
    }
    constexpr ValueRule step = rules::digits(4, 0, 9999);
    const auto digits = command.substr(2);
    if (command.starts_with("RC") || !step.accepts(digits)) return std::string(refused);
    const int moved = *parseWhole(radio.state.get("clarifier")) +
                      (command.starts_with("RU") ? *parseWhole(digits) : -*parseWhole(digits));
    if (moved < -9999 || moved > 9999) return std::string(refused);
    radio.state.set("clarifier", (moved < 0 ? "-" : "+") + zeroPadded(std::abs(moved), 4));
    return {};
}

/// Some programs say 2 and 3 for main and sub; the answer is always 0 or 1.
std::string transmitVfo(SimulatedRadio& radio, std::string_view command) {
    if (command == "FT2") return setting(radio, "FT0");
    if (command == "FT3") return setting(radio, "FT1");
    return setting(radio, command);
}

}  // namespace korvex::commands
