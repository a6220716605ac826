#include "radio/Commands.h"
#include "radio/SimulatedRadio.h"

namespace korvex::commands {

namespace {

void key(SimulatedRadio& radio, char how) {
    radio.state.set("TX", std::string(1, how));
    if (how != '0') ++radio.timesKeyed;
}

}  // namespace

std::string transmit(SimulatedRadio& radio, std::string_view command) {
    const auto value = command.substr(2);
    if (value.empty()) return setting(radio, command);
    if (!rules::oneOf("012").accepts(value)) return std::string(refused);
    key(radio, value.front());
    return {};
}

std::string manualTransmit(SimulatedRadio& radio, std::string_view command) {
    const auto value = command.substr(2);
    if (value.empty()) return std::string(radio.state.get("TX") == "0" ? "MX0;" : "MX1;");
    if (!rules::offOn().accepts(value)) return std::string(refused);
    key(radio, value.front());
    return {};
}

std::string antennaTuner(SimulatedRadio& radio, std::string_view command) {
    if (command == "AC") return "AC00" + radio.state.get("AC00") + ";";
    if (command == "AC002") {
        ++radio.timesKeyed;  // tuning transmits a carrier; afterwards the tuner is on
        radio.state.set("AC00", "1");
        return {};
    }
    if (command == "AC000" || command == "AC001") return setting(radio, command);
    return std::string(refused);
}

}  // namespace korvex::commands
