#pragma once

#include <span>
#include <string_view>

#include "radio/ValueRule.h"

namespace korvex {

/// What a setting belongs to.
enum class Home {
    Radio,     ///< the radio as a whole
    Register,  ///< the band stack register that VFO-A stands on
    Tuning     ///< what is tuned in: the register's in VFO mode, the recalled channel's in memory mode
};

/// A value of the radio that a command sets and reads. Its key is what stands before the value in that command.
struct Setting {
    std::string_view key;
    Home home;
    ValueRule rule;
    std::string_view start;  ///< as an owner may have left it
    bool readOnly = false;
};

std::span<const Setting> allSettings();

/// The setting with exactly this key, null when there is none.
const Setting* findSetting(std::string_view key);

/// The setting that a command is about, null when there is none.
const Setting* settingOfCommand(std::string_view command);

}  // namespace korvex
