#include <algorithm>
#include <array>

#include "radio/Commands.h"

namespace korvex::commands {

namespace {

struct Entry {
    std::string_view letters;
    Handler handler;
};

constexpr auto table = std::to_array<Entry>({
    {"AB", copyMainToSub}, {"AC", antennaTuner},    {"AG", setting},         {"AI", setting},
    {"AM", mainToMemory},  {"AN", antenna},         {"BC", autoNotch},       {"BI", setting},
    {"BP", setting},       {"BS", bandSelect},      {"CN", setting},         {"CO", setting},
    {"CT", setting},       {"EX", menuItem},        {"FA", setting},         {"FB", setting},
    {"FR", setting},       {"FS", setting},         {"FT", transmitVfo},     {"GT", automaticGain},
    {"ID", setting},       {"IF", mainState},       {"IS", setting},         {"KM", keyerText},
    {"KP", setting},       {"KR", setting},         {"KS", setting},         {"KY", keyerPlay},
    {"LK", setting},       {"MA", memoryToMain},    {"MC", memoryChannel},   {"MD", setting},
    {"MG", setting},       {"ML", setting},         {"MR", memoryRead},      {"MS", setting},
    {"MW", memoryWrite},   {"MX", manualTransmit},  {"NA", setting},         {"NB", setting},
    {"NL", setting},       {"NR", setting},         {"OI", subState},        {"OS", setting},
    {"PA", setting},       {"PC", setting},         {"PL", setting},         {"PR", setting},
    {"PS", setting},       {"RA", setting},         {"RC", clarifierOffset}, {"RD", clarifierOffset},
    {"RF", roofingFilter}, {"RG", setting},         {"RL", setting},         {"RM", setting},
    {"RT", setting},       {"RU", clarifierOffset}, {"SD", setting},         {"SH", setting},
    {"SM", setting},       {"SQ", setting},         {"SV", swapMainAndSub},  {"TX", transmit},
    {"VD", setting},       {"VG", setting},         {"VM", vfoOrMemory},     {"VS", setting},
    {"VX", setting},       {"XT", setting},
});

static_assert(std::is_sorted(table.begin(), table.end(),
                             [](const Entry& a, const Entry& b) { return a.letters < b.letters; }));

}  // namespace

Handler handlerOf(std::string_view command) {
    const auto letters = command.substr(0, 2);
    const auto* found =
        std::lower_bound(table.begin(), table.end(), letters,
                         [](const Entry& entry, std::string_view text) { return entry.letters < text; });
    return found != table.end() && found->letters == letters ? found->handler : nullptr;
}

}  // namespace korvex::commands
