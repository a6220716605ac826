#pragma once

#include <array>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "radio/Setting.h"

namespace korvex {

/// Values of settings by key.
using Values = std::map<std::string, std::string, std::less<>>;

/// Everything that a simulated radio remembers.
struct RadioState {
    static constexpr int bands = 11;
    static constexpr int registersPerBand = 3;
    static constexpr std::size_t allRegisters = std::size_t{bands} * registersPerBand;
    static constexpr int lastChannel = 117;
    static constexpr int keyerTexts = 5;
    static constexpr int menuItems = 149;

    Values radio;
    std::array<Values, allRegisters> registers;  ///< in band order
    int band = 0;                                ///< of the register that VFO-A stands on
    std::array<int, bands> lastUsed{};           ///< per band: which of its registers was used last

    bool memoryMode = false;
    int channel = 1;
    Values recalled;  ///< the tuning in memory mode: the channel as it was recalled, or turned since
    std::array<std::optional<std::string>, lastChannel + 1> memories;  ///< records by channel; 0 is not used

    std::array<std::string, keyerTexts + 1> keyer;  ///< by number; 0 is not used
    std::array<std::string, menuItems + 1> menu;    ///< values as last set, by number; 0 is not used

    Values& currentRegister();
    const Values& currentRegister() const;
    void leaveMemoryMode() {
        memoryMode = false;
        recalled.clear();
    }
    const Values& tuning() const { return memoryMode ? recalled : currentRegister(); }

    /// The value of the setting with this key, wherever it lives.
    const std::string& get(std::string_view key) const;
    void set(std::string_view key, std::string_view value);

    const std::string& get(const Setting& setting) const;
    void set(const Setting& setting, std::string_view value);

    bool operator==(const RadioState&) const = default;

private:
    std::size_t currentIndex() const;
    Values& homeOf(const Setting& setting);
};

/// A radio as an owner may have it on the desk: memories partly filled, keyer texts, menu items off their defaults.
RadioState ownersRadio();

}  // namespace korvex
