#include "radio/StateText.h"

#include "base/NumberText.h"
#include "radio/ChannelRecord.h"

namespace korvex {

namespace {

std::string line(const std::string& key, std::string_view value) {
    return key + " = " + std::string(value) + "\n";
}

std::string registerName(std::size_t index) {
    constexpr std::size_t perBand = RadioState::registersPerBand;
    return zeroPadded(static_cast<int>(index / perBand), 2) + "." + std::to_string(index % perBand + 1);
}

std::string registerText(const Values& values) {
    std::string text;
    for (const auto& [key, value] : values) {
        if (!text.empty()) text += ' ';
        text.append(key).append("=").append(value);
    }
    return text;
}

std::string bandLines(const RadioState& state) {
    std::string text = line("band", zeroPadded(state.band, 2));
    for (std::size_t i = 0; i < state.lastUsed.size(); ++i) {
        text += line("last used " + zeroPadded(static_cast<int>(i), 2), std::to_string(state.lastUsed.at(i) + 1));
    }
    for (std::size_t i = 0; i < state.registers.size(); ++i) {
        text += line("register " + registerName(i), registerText(state.registers.at(i)));
    }
    return text;
}

std::string memoryLines(const RadioState& state) {
    std::string text = line("channel", zeroPadded(state.channel, 3));
    text += line("recalled", state.memoryMode ? channelrecord::compose(state.recalled) : std::string_view("none"));
    for (int i = 1; i <= RadioState::lastChannel; ++i) {
        const auto& record = state.memories.at(static_cast<std::size_t>(i));
        text += line("memory " + zeroPadded(i, 3), record ? std::string_view(*record) : std::string_view("none"));
    }
    return text;
}

std::string keyerAndMenuLines(const RadioState& state) {
    std::string text;
    for (std::size_t i = 1; i < state.keyer.size(); ++i) {
        text += line("keyer " + std::to_string(i), "\"" + state.keyer.at(i) + "\"");
    }
    for (std::size_t i = 1; i < state.menu.size(); ++i) {
        text += line("menu " + zeroPadded(static_cast<int>(i), 3), state.menu.at(i));
    }
    return text;
}

}  // namespace

std::string stateText(const RadioState& state) {
    std::string text = std::string(stateHeading) + " Change what you like; lines that make no sense are passed over.\n";
    for (const auto& [key, value] : state.radio) text += line(key, value);
    return text + bandLines(state) + memoryLines(state) + keyerAndMenuLines(state);
}

}  // namespace korvex
