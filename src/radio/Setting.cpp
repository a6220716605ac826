#include "radio/Setting.h"

#include <algorithm>
#include <array>

namespace korvex {

namespace {

using enum Home;
using namespace rules;

constexpr std::string_view modes = "123456789ABCD";
constexpr ValueRule hertz = digits(8, 30'000, 60'000'000);

constexpr auto settings = std::to_array<Setting>({
    {"FA", Tuning, hertz, "14195000"},
    {"clarifier", Tuning, withSign(5, -9999, 9999), "+0000"},
    {"RT", Tuning, offOn(), "0"},
    {"XT", Tuning, offOn(), "0"},
    {"MD0", Tuning, oneOf(modes), "2"},
    {"CT0", Tuning, digits(1, 0, 2), "0"},
    {"CN0", Tuning, digits(2, 0, 49), "08"},
    {"OS0", Tuning, digits(1, 0, 2), "0"},

    {"AC00", Register, offOn(), "0"},
    {"AN0", Register, digits(1, 1, 2), "1"},
    {"AN5", Register, offOn(), "0"},  // the receive antenna, which AN05 toggles
    {"BC0", Register, offOn(), "0"},
    {"BP00", Register, digits(3, 0, 1), "000"},
    {"CO00", Register, digits(2, 0, 2), "00"},
    {"GT0", Register, digits(1, 0, 4), "4"},
    {"NA0", Register, offOn(), "0"},
    {"NB0", Register, digits(1, 0, 2), "0"},
    {"NR0", Register, offOn(), "0"},
    {"PA0", Register, digits(1, 0, 2), "0"},
    {"RA0", Register, digits(1, 0, 3), "0"},
    {"RF0", Register, digits(1, 0, 3), "0"},

    {"ID", Radio, digits(4, 251, 252), "0251", true},  // FT-2000, FT-2000D
    {"PS", Radio, offOn(), "1"},
    {"AI", Radio, offOn(), "0"},
    {"FB", Radio, hertz, "07074000"},
    {"MD1", Radio, oneOf(modes), "1"},
    {"NA1", Radio, offOn(), "0"},
    {"GT1", Radio, digits(1, 0, 4), "3"},
    {"NB1", Radio, digits(1, 0, 2), "1"},
    {"RF1", Radio, digits(1, 0, 3), "0", true},
    {"VS", Radio, offOn(), "0"},
    {"FR", Radio, digits(1, 0, 3), "0"},
    {"FT", Radio, offOn(), "0"},
    {"TX", Radio, digits(1, 0, 2), "0"},

    {"AG0", Radio, level(), "084"},
    {"AG1", Radio, level(), "070"},
    {"RG0", Radio, level(), "255"},
    {"RG1", Radio, level(), "255"},
    {"SQ0", Radio, level(), "000"},
    {"SQ1", Radio, level(), "000"},
    {"SM0", Radio, level(), "062", true},
    {"SM1", Radio, level(), "041", true},
    {"BP01", Radio, digits(3, 1, 400), "150"},
    {"CO01", Radio, digits(2, 1, 40), "12"},
    {"CO02", Radio, digits(2, 0, 50), "25"},
    {"IS0", Radio, withSign(5, -1000, 1000), "+0000"},
    {"SH0", Radio, digits(2, 1, 31), "16"},
    {"NL0", Radio, digits(3, 0, 10), "005"},
    {"RL0", Radio, digits(2, 1, 15), "06"},

    {"BI", Radio, offOn(), "1"},
    {"KP", Radio, digits(2, 0, 15), "08"},
    {"KR", Radio, offOn(), "1"},
    {"KS", Radio, digits(3, 4, 60), "022"},
    {"SD", Radio, digits(4, 30, 3000), "0300"},
    {"MG", Radio, level(), "110"},
    {"ML0", Radio, digits(3, 0, 1), "000"},
    {"ML1", Radio, level(), "080"},
    {"PC", Radio, digits(3, 5, 100), "100"},
    {"PL", Radio, level(), "090"},
    {"PR", Radio, offOn(), "0"},
    {"VD", Radio, digits(4, 30, 3000), "0500"},
    {"VG", Radio, level(), "120"},
    {"VX", Radio, offOn(), "0"},
    {"RM3", Radio, level(), "000", true},
    {"RM4", Radio, level(), "000", true},
    {"RM5", Radio, level(), "000", true},
    {"RM6", Radio, level(), "000", true},
    {"RM7", Radio, level(), "000", true},
    {"RM8", Radio, level(), "198", true},

    {"FS", Radio, offOn(), "0"},
    {"LK", Radio, offOn(), "0"},
    {"MS", Radio, digits(1, 0, 5), "2"},
});

}  // namespace

std::span<const Setting> allSettings() {
    return settings;
}

const Setting* findSetting(std::string_view key) {
    const auto* found = std::find_if(settings.begin(), settings.end(), [key](const auto& s) { return s.key == key; });
    return found == settings.end() ? nullptr : &*found;
}

const Setting* settingOfCommand(std::string_view command) {
    const auto* found =
        std::find_if(settings.begin(), settings.end(), [command](const auto& s) { return command.starts_with(s.key); });
    return found == settings.end() ? nullptr : &*found;
}

}  // namespace korvex
