#include "fakes/WholeRestore.h"

#include <algorithm>
#include <fnmatch.h>
#include <functional>
#include <map>
#include <sstream>
#include <string_view>

#include "base/NumberText.h"
#include "radio/ChannelRecord.h"
#include "radio/Setting.h"
#include "radio/SimulatedRadio.h"

namespace korvex::fakes {

namespace {

// --- another radio

using Passes = std::function<bool(const std::string&)>;

/// The first of the texts that differ from this one in a single character and that pass.
std::string changedInOnePlace(const std::string& value, const Passes& passes) {
    for (std::size_t at = value.size(); at-- > 0;) {
        for (const char c : std::string_view("0123456789ABCD+-")) {
            std::string other = value;
            other[at] = c;
            if (other != value && passes(other)) return other;
        }
    }
    return value;
}

void changeSettings(Values& values) {
    for (auto& [key, value] : values) {
        const Setting* setting = findSetting(key);
        if (setting == nullptr || setting->readOnly || key == "PS" || key == "AI" || key == "TX") continue;
        const ValueRule& rule = setting->rule;
        std::string other = changedInOnePlace(value, [&rule](const auto& text) { return rule.accepts(text); });
        value = other == value ? zeroPadded(rule.low, rule.width) : other;
    }
}

void changeMenu(RadioState& state) {
    SimulatedRadio radio;
    for (int item = 1; item <= RadioState::menuItems; ++item) {
        auto& value = state.menu.at(static_cast<std::size_t>(item));
        const std::string command = "EX" + zeroPadded(item, 3);
        value = changedInOnePlace(value, [&](const auto& text) { return radio.answer(command + text + ";").empty(); });
    }
}

void changeMemories(RadioState& state) {
    for (std::size_t channel = 1; channel < state.memories.size(); ++channel) {
        auto& record = state.memories.at(channel);
        Values tuning = *channelrecord::parse(record.value_or("14100000+000000300000"));
        changeSettings(tuning);
        record = channelrecord::compose(tuning);
    }
}

// --- states

using Lines = std::map<std::string, std::string>;

Lines linesOfState(const std::string& state) {
    Lines lines;
    std::istringstream text(state);
    for (std::string line; std::getline(text, line);) {
        const auto equals = line.find(" = ");
        if (!line.starts_with('#') && equals != std::string::npos)
            lines[line.substr(0, equals)] = line.substr(equals + 3);
    }
    return lines;
}

constexpr std::string_view registerKey = "register ";

/// "register 05.0" is the one that was used last.
Lines walked(const Lines& lines) {
    constexpr std::size_t bandDigits = 2;
    constexpr int perBand = RadioState::registersPerBand;
    Lines all;
    for (const auto& [key, value] : lines) {
        if (key.starts_with("last used ")) continue;
        if (!key.starts_with(registerKey)) {
            all[key] = value;
            continue;
        }
        const std::string band = key.substr(registerKey.size(), bandDigits);
        const int last = parseWhole(lines.at("last used " + band)).value_or(1);
        const int number = parseWhole(key.substr(key.size() - 1)).value_or(1);
        all[std::string(registerKey) + band + "." + std::to_string((number - last + perBand) % perBand)] = value;
    }
    return all;
}

/// "register 05.0 FA" for each value of a register.
Lines flattened(const Lines& lines) {
    Lines flat;
    for (const auto& [key, value] : lines) {
        if (!key.starts_with(registerKey)) {
            flat[key] = value;
            continue;
        }
        std::istringstream words(value);
        for (std::string word; words >> word;) {
            const auto equals = word.find('=');
            flat[key + " " + word.substr(0, equals)] = word.substr(equals + 1);
        }
    }
    return flat;
}

}  // namespace

const std::vector<LeftAsItIs>& leftByWholeRestore() {
    static const std::vector<LeftAsItIs> all = {
        {"another speed, time-out or RTS cuts the line; `--with-cat` sends them last, the speed at the very end",
         {"menu 028", "menu 029", "menu 030"},
         false,
         true},
        {"memories that are empty in the saved radio: no command empties one", {"memory ???"}, true},
        {"keyer texts that are empty in the saved radio: the command with one is a question", {"keyer ?"}, true},
        {"clarifier, tone and repeater shift of the band stack registers: no file holds them",
         {"registers RT", "registers XT", "registers clarifier", "registers CT0", "registers CN0", "registers OS0"}},
        {"gains, levels and power: no file holds them",
         {"AG0", "AG1", "RG0", "RG1", "SQ0", "SQ1", "MG", "ML1", "NL0", "RL0", "PC", "PL", "VG"}},
        {"width, shift, notch and contour: no file holds them", {"SH0", "IS0", "BP01", "CO01", "CO02"}},
        {"the keyer's speed and pitch, delays, VOX, speech processor: no file holds them",
         {"KS", "KP", "SD", "VD", "VX", "PR"}},
        {"VFO, split, steps, lock, meter, memory channel: no file holds how the front panel is set",
         {"VS", "FR", "FT", "FS", "LK", "MS", "channel"}},
        {"the band that the radio stands on: it is put back onto its own", {"band"}},
    };
    return all;
}

std::set<std::string> leftByWholeRestore(const std::string& savedState, bool withCat) {
    std::set<std::string> found;
    const auto saved = linesOfState(savedState);
    for (const auto& left : leftByWholeRestore()) {
        if (left.unlessCat && withCat) continue;
        for (const auto& pattern : left.settings) {
            if (pattern.find_first_of("?*") == std::string::npos) found.insert(pattern);
            for (const auto& [key, value] : saved) {
                const bool isEmpty = value == "none" || value == "\"\"";
                if (::fnmatch(pattern.c_str(), key.c_str(), 0) == 0 && (isEmpty || !left.onlyEmpty)) found.insert(key);
            }
        }
    }
    return found;
}

RadioState radioUnlike(const RadioState& one) {
    RadioState state = one;
    changeSettings(state.radio);
    for (auto& values : state.registers) changeSettings(values);
    changeMenu(state);
    changeMemories(state);
    for (auto& text : state.keyer) text = "QRX " + text.substr(0, 40);
    for (auto& used : state.lastUsed) used = (used + 1) % RadioState::registersPerBand;
    state.band = (one.band + 3) % RadioState::bands;
    state.channel = one.channel + 4;
    state.memoryMode = true;
    state.recalled = *channelrecord::parse(*state.memories.at(static_cast<std::size_t>(state.channel)));
    return state;
}

std::string asWalked(const std::string& state) {
    std::string text;
    for (const auto& [key, value] : walked(linesOfState(state)))
        text.append(key).append(" = ").append(value).append("\n");
    return text;
}

std::set<std::string> whatDiffers(const std::string& one, const std::string& other) {
    const Lines first = flattened(walked(linesOfState(one)));
    const Lines second = flattened(walked(linesOfState(other)));
    std::set<std::string> keys;
    const auto collect = [&keys](const Lines& from, const Lines& in) {
        for (const auto& [key, value] : from) {
            const auto there = in.find(key);
            if (there != in.end() && there->second == value) continue;
            keys.insert(key.starts_with(registerKey) ? "registers " + key.substr(key.rfind(' ') + 1) : key);
        }
    };
    collect(first, second);
    collect(second, first);
    return keys;
}

}  // namespace korvex::fakes
