#include <algorithm>
#include <array>

#include "base/NumberText.h"
#include "radio/ChannelRecord.h"
#include "radio/KeyerText.h"
#include "radio/MenuItems.h"
#include "radio/StateText.h"

namespace korvex {

namespace {

constexpr std::string_view nothing = "none";

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r";
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::optional<std::size_t> numberIn(std::string_view text, int width, int low, int high) {
    if (!rules::digits(width, low, high).accepts(text)) return std::nullopt;
    return static_cast<std::size_t>(*parseWhole(text));
}

bool readBand(RadioState& state, std::string_view, std::string_view value) {
    const auto band = numberIn(value, 2, 0, RadioState::bands - 1);
    if (band) state.band = static_cast<int>(*band);
    return band.has_value();
}

bool readLastUsed(RadioState& state, std::string_view which, std::string_view value) {
    const auto band = numberIn(which, 2, 0, RadioState::bands - 1);
    const auto used = numberIn(value, 1, 1, RadioState::registersPerBand);
    if (!band || !used) return false;
    state.lastUsed.at(*band) = static_cast<int>(*used) - 1;
    return true;
}

bool readRegisterValue(Values& values, std::string_view word) {
    const auto equals = word.find('=');
    if (equals == std::string_view::npos) return false;
    const auto* setting = findSetting(word.substr(0, equals));
    const auto value = word.substr(equals + 1);
    if (setting == nullptr || setting->home == Home::Radio || !setting->rule.accepts(value)) return false;
    values.insert_or_assign(std::string(setting->key), std::string(value));
    return true;
}

bool readRegister(RadioState& state, std::string_view which, std::string_view value) {
    constexpr std::size_t bandDigits = 2;
    const auto band = numberIn(which.substr(0, bandDigits), bandDigits, 0, RadioState::bands - 1);
    if (!band || which.substr(bandDigits, 1) != ".") return false;
    const auto slot = numberIn(which.substr(bandDigits + 1), 1, 1, RadioState::registersPerBand);
    if (!slot) return false;
    auto& values = state.registers.at(*band * RadioState::registersPerBand + *slot - 1);
    bool all = true;
    while (!value.empty()) {
        const auto word = value.substr(0, value.find(' '));
        all = readRegisterValue(values, word) && all;
        value = trimmed(value.substr(word.size()));
    }
    return all;
}

bool readChannel(RadioState& state, std::string_view, std::string_view value) {
    const auto channel = numberIn(value, 3, 1, RadioState::lastChannel);
    if (channel) state.channel = static_cast<int>(*channel);
    return channel.has_value();
}

bool readRecalled(RadioState& state, std::string_view, std::string_view value) {
    const auto tuning = channelrecord::parse(value);
    if (!tuning && value != nothing) return false;
    state.memoryMode = tuning.has_value();
    state.recalled = tuning.value_or(Values());
    return true;
}

bool readMemory(RadioState& state, std::string_view which, std::string_view value) {
    const auto channel = numberIn(which, 3, 1, RadioState::lastChannel);
    const auto tuning = channelrecord::parse(value);
    if (!channel || (!tuning && value != nothing)) return false;
    auto& memory = state.memories.at(*channel);
    memory.reset();
    if (tuning) memory = channelrecord::compose(*tuning);
    return true;
}

bool readKeyer(RadioState& state, std::string_view which, std::string_view value) {
    const auto number = numberIn(which, 1, 1, RadioState::keyerTexts);
    const bool quoted = value.size() >= 2 && value.front() == '"' && value.back() == '"';
    if (!number || !quoted || !isKeyerText(value.substr(1, value.size() - 2))) return false;
    state.keyer.at(*number) = value.substr(1, value.size() - 2);
    return true;
}

bool readMenu(RadioState& state, std::string_view which, std::string_view value) {
    const auto number = numberIn(which, 3, 1, RadioState::menuItems);
    if (!number || !menuRule(static_cast<int>(*number)).accepts(value)) return false;
    state.menu.at(*number) = value;
    return true;
}

bool readSetting(RadioState& state, std::string_view key, std::string_view value) {
    const auto* setting = findSetting(key);
    if (setting == nullptr || setting->home != Home::Radio || !setting->rule.accepts(value)) return false;
    state.set(*setting, value);
    return true;
}

struct Reader {
    std::string_view beginning;
    bool (*read)(RadioState&, std::string_view rest, std::string_view value);
};
constexpr auto readers = std::to_array<Reader>({
    {"band", readBand},
    {"last used ", readLastUsed},
    {"register ", readRegister},
    {"channel", readChannel},
    {"recalled", readRecalled},
    {"memory ", readMemory},
    {"keyer ", readKeyer},
    {"menu ", readMenu},
    {"", readSetting},
});

bool readLine(RadioState& state, std::string_view text) {
    const auto equals = text.find('=');
    if (equals == std::string_view::npos) return false;
    const auto key = trimmed(text.substr(0, equals));
    const auto value = trimmed(text.substr(equals + 1));
    const auto* reader = std::find_if(readers.begin(), readers.end(),
                                      [key](const Reader& known) { return key.starts_with(known.beginning); });
    return reader->read(state, trimmed(key.substr(reader->beginning.size())), value);
}

/// Comments and empty lines left out.
template <class Work>
void forEachLine(std::string_view text, Work work) {
    for (int number = 1; !text.empty(); ++number) {
        const auto raw = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(raw.size() + 1, text.size()));
        const auto content = trimmed(raw);
        if (!content.empty() && content.front() != '#') work(number, content);
    }
}

}  // namespace

bool isStateText(std::string_view text) {
    if (text.starts_with(stateHeading)) return true;
    bool all = true;
    bool any = false;
    RadioState state;
    forEachLine(text, [&](int, std::string_view content) {
        any = true;
        all = readLine(state, content) && all;
    });
    return all && (any || text.find_first_not_of(" \t\r\n") == std::string_view::npos);
}

std::vector<std::string> loadState(RadioState& state, std::string_view text) {
    std::vector<std::string> complaints;
    forEachLine(text, [&](int number, std::string_view content) {
        if (readLine(state, content)) return;
        complaints.push_back("line " + std::to_string(number) + " makes no sense: " + std::string(content));
    });
    return complaints;
}

}  // namespace korvex
