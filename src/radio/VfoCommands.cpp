#include <array>

#include "base/NumberText.h"
#include "radio/ChannelRecord.h"
#include "radio/Commands.h"
#include "radio/SimulatedRadio.h"

namespace korvex::commands {

namespace {

constexpr int sixtyMetres = 2;

struct Pair {
    std::string_view main;
    std::string_view sub;
};
constexpr std::array<Pair, 3> vfoPairs = {{{"FA", "FB"}, {"MD0", "MD1"}, {"NA0", "NA1"}}};

/// Where the main side's tuning comes from: 0 VFO, 1 memory, 2 a memory that was tuned away from.
char source(const RadioState& state) {
    if (!state.memoryMode) return '0';
    const auto& stored = state.memories.at(static_cast<std::size_t>(state.channel));
    return stored && *stored == channelrecord::compose(state.recalled) ? '1' : '2';
}

std::string stateAnswer(std::string_view letters, const RadioState& state, std::string record, char from) {
    record.at(channelrecord::sourcePosition) = from;
    return std::string(letters) + zeroPadded(state.channel, 3) + record + ";";
}

}  // namespace

/// The same band again steps round its three registers; another band comes back as it was left.
std::string bandSelect(SimulatedRadio& radio, std::string_view command) {
    auto& state = radio.state;
    constexpr ValueRule bandNumber = rules::digits(2, 0, RadioState::bands - 1);
    const auto digits = command.substr(2);
    if (!bandNumber.accepts(digits)) return std::string(refused);
    const int band = *parseWhole(digits);
    if (band == sixtyMetres && !radio.quirks.hasSixtyMetres) return std::string(refused);
    if (band == state.band && !state.memoryMode) {
        auto& used = state.lastUsed.at(static_cast<std::size_t>(band));
        used = (used + 1) % RadioState::registersPerBand;
    }
    state.band = band;
    state.leaveMemoryMode();
    return {};
}

std::string copyMainToSub(SimulatedRadio& radio, std::string_view command) {
    if (command != "AB") return std::string(refused);
    for (const auto& pair : vfoPairs) radio.state.set(pair.sub, radio.state.get(pair.main));
    return {};
}

std::string swapMainAndSub(SimulatedRadio& radio, std::string_view command) {
    if (command != "SV") return std::string(refused);
    for (const auto& pair : vfoPairs) {
        const std::string main = radio.state.get(pair.main);
        radio.state.set(pair.main, radio.state.get(pair.sub));
        radio.state.set(pair.sub, main);
    }
    return {};
}

std::string mainState(SimulatedRadio& radio, std::string_view command) {
    if (command != "IF") return std::string(refused);
    return stateAnswer("IF", radio.state, channelrecord::compose(radio.state.tuning()), source(radio.state));
}

std::string subState(SimulatedRadio& radio, std::string_view command) {
    if (command != "OI") return std::string(refused);
    const Values sub = {{"FA", radio.state.get("FB")},   {"clarifier", "+0000"}, {"RT", "0"},   {"XT", "0"},
                        {"MD0", radio.state.get("MD1")}, {"CT0", "0"},           {"CN0", "00"}, {"OS0", "0"}};
    return stateAnswer("OI", radio.state, channelrecord::compose(sub), '0');
}

}  // namespace korvex::commands
