#include "radio/RadioState.h"

#include <cassert>

namespace korvex {

namespace {

const std::string& valueIn(const Values& values, std::string_view key) {
    static const std::string none;
    const auto found = values.find(key);
    return found == values.end() ? none : found->second;
}

const Setting& known(std::string_view key) {
    const Setting* setting = findSetting(key);
    assert(setting != nullptr);
    return *setting;
}

}  // namespace

std::size_t RadioState::currentIndex() const {
    const auto row = static_cast<std::size_t>(band);
    return row * registersPerBand + static_cast<std::size_t>(lastUsed.at(row));
}

const Values& RadioState::currentRegister() const {
    return registers.at(currentIndex());
}

Values& RadioState::currentRegister() {
    return registers.at(currentIndex());
}

const std::string& RadioState::get(const Setting& setting) const {
    switch (setting.home) {
        case Home::Radio: return valueIn(radio, setting.key);
        case Home::Register: return valueIn(currentRegister(), setting.key);
        case Home::Tuning: break;
    }
    return valueIn(tuning(), setting.key);
}

void RadioState::set(const Setting& setting, std::string_view value) {
    homeOf(setting).insert_or_assign(std::string(setting.key), std::string(value));
}

Values& RadioState::homeOf(const Setting& setting) {
    if (setting.home == Home::Radio) return radio;
    return setting.home == Home::Tuning && memoryMode ? recalled : currentRegister();
}

const std::string& RadioState::get(std::string_view key) const {
    return get(known(key));
}

void RadioState::set(std::string_view key, std::string_view value) {
    set(known(key), value);
}

}  // namespace korvex
