#include "base/NumberText.h"
#include "radio/ChannelRecord.h"
#include "radio/Commands.h"
#include "radio/SimulatedRadio.h"

namespace korvex::commands {

namespace {

constexpr std::size_t channelDigits = 3;

/// The channel number behind a command's two letters.
std::optional<int> channelIn(std::string_view command) {
    constexpr ValueRule channelNumber = rules::digits(channelDigits, 1, RadioState::lastChannel);
    const auto digits = command.substr(2, channelDigits);
    if (!channelNumber.accepts(digits)) return std::nullopt;
    return parseWhole(digits);
}

std::optional<std::string>& stored(RadioState& state, int channel) {
    return state.memories.at(static_cast<std::size_t>(channel));
}

/// Nothing happens when the channel is empty.
bool recall(RadioState& state, int channel) {
    const auto& record = stored(state, channel);
    if (!record) return false;
    state.recalled = channelrecord::parse(*record).value_or(Values());
    state.channel = channel;
    state.memoryMode = true;
    return true;
}

}  // namespace

std::string memoryChannel(SimulatedRadio& radio, std::string_view command) {
    if (command == "MC") return "MC" + zeroPadded(radio.state.channel, channelDigits) + ";";
    const auto channel = channelIn(command);
    const bool wellFormed = channel && command.size() == 2 + channelDigits;
    return wellFormed && recall(radio.state, *channel) ? std::string() : std::string(refused);
}

std::string memoryRead(SimulatedRadio& radio, std::string_view command) {
    auto channel = channelIn(command);
    if (!channel || command.size() != 2 + channelDigits) return std::string(refused);
    if (radio.quirks.readsCurrentChannel) channel = radio.state.channel;
    auto record = stored(radio.state, *channel);
    if (!record) {
        if (!radio.quirks.emptyChannelAnswersZeros) return std::string(refused);
        record = "00000000+000000000000";
    }
    record->at(channelrecord::sourcePosition) = radio.quirks.sourceInMemoryRead;
    return "MR" + zeroPadded(*channel, channelDigits) + *record + ";";
}

std::string memoryWrite(SimulatedRadio& radio, std::string_view command) {
    const auto channel = channelIn(command);
    if (!channel) return std::string(refused);
    std::string record(command.substr(2 + channelDigits));
    if (!channelrecord::parse(record)) return std::string(refused);
    char& source = record.at(channelrecord::sourcePosition);
    if (source != '0' && source != radio.quirks.sourceInMemoryRead) return std::string(refused);
    source = '0';
    stored(radio.state, *channel) = record;
    if (radio.quirks.writeEntersMemoryMode) recall(radio.state, *channel);
    return {};
}

std::string memoryToMain(SimulatedRadio& radio, std::string_view command) {
    auto& state = radio.state;
    if (command != "MA" || !stored(state, state.channel)) return std::string(refused);
    for (const auto& [key, value] : channelrecord::parse(*stored(state, state.channel)).value_or(Values())) {
        state.currentRegister().insert_or_assign(key, value);
    }
    return {};
}

std::string mainToMemory(SimulatedRadio& radio, std::string_view command) {
    if (command != "AM") return std::string(refused);
    stored(radio.state, radio.state.channel) = channelrecord::compose(radio.state.currentRegister());
    return {};
}

std::string vfoOrMemory(SimulatedRadio& radio, std::string_view command) {
    auto& state = radio.state;
    if (command != "VM") return std::string(refused);
    if (!state.memoryMode) return recall(state, state.channel) ? std::string() : std::string(refused);
    state.leaveMemoryMode();
    return {};
}

}  // namespace korvex::commands
