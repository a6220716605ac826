#include "radio/MenuItems.h"

#include <algorithm>
#include <array>

namespace korvex {

namespace {

using namespace rules;

struct KnownItem {
    int number;
    ValueRule rule;
};

// The microphone equalizer has two sets of nine items: frequency, level and width of each of three bands.
constexpr std::array<int, 2> equalizerSets = {125, 134};  // processor off, processor on
constexpr ValueRule equalizerLevel = withSign(3, -20, 10);
constexpr ValueRule equalizerWidth = digits(2, 1, 10);
constexpr std::array<ValueRule, 9> equalizerItems = {digits(2, 0, 7),  equalizerLevel, equalizerWidth,
                                                     digits(2, 0, 9),  equalizerLevel, equalizerWidth,
                                                     digits(2, 0, 18), equalizerLevel, equalizerWidth};

constexpr auto knownItems = std::to_array<KnownItem>({
    {20, offOn()},  // keyer memories 1 to 5: text or paddle
    {21, offOn()},
    {22, offOn()},
    {23, offOn()},
    {24, offOn()},
    {menuCatRate, digits(1, 0, 3)},
    {menuCatTimeOut, digits(1, 0, 3)},
    {menuCatRts, offOn()},
    {42, digits(3, 0, 100)},   // anti-VOX gain
    {76, digits(4, 0, 1000)},  // repeater shift 28 MHz, kHz
    {77, digits(4, 0, 4000)},  // repeater shift 50 MHz, kHz
    {97, digits(2, 0, 10)},    // narrow widths: CW, RTTY, SSB
    {103, digits(2, 0, 5)},
    {106, digits(2, 0, 11)},
});

constexpr auto startValues = std::to_array<std::string_view>({
    "0300", "0020",  "0700",  "0020",  "2000", "0020", "0",    "08",   "04",    "1",      // 001..010
    "0",    "2",     "090",   "0",     "050",  "045",  "030",  "0042", "3",     "0",      // 011..020
    "0",    "0",     "0",     "1",     "0",    "060",  "1",    "3",    "1",     "0",      // 021..030
    "2",    "+0000", "10",    "1",     "+05",  "-03",  "0",    "1",    "05",    "2",      // 031..040
    "1",    "050",   "0",     "015",   "0",    "1",    "0",    "2",    "030",   "1",      // 041..050
    "32",   "2",     "1",     "0",     "4",    "0",    "1",    "0100", "+0000", "-0010",  // 051..060
    "0",    "050",   "1",     "+2125", "0",    "2",    "045",  "1",    "0",     "0",      // 061..070
    "3",    "1",     "+0000", "050",   "0",    "0100", "1000", "1",    "0",     "1",      // 071..080
    "0",    "0",     "+1000", "1",     "2",    "1",    "-15",  "10",   "+10",   "06",     // 081..090
    "1",    "-08",   "03",    "0",     "1",    "0",    "06",   "1",    "2",     "03",     // 091..100
    "0",    "1",     "04",    "2",     "1",    "08",   "0",    "1",    "2",     "0",      // 101..110
    "1800", "3500",  "7000",  "0100",  "1",    "0",    "2",    "3",    "1",     "0",      // 111..120
    "12",   "0",     "5",     "1",     "03",   "+05",  "04",   "05",   "-03",   "03",     // 121..130
    "12",   "+08",   "02",    "02",    "-10",  "06",   "06",   "+00",  "05",    "15",     // 131..140
    "+10",  "07",    "100",   "0",     "050",  "1",    "0300", "3",    "0",               // 141..149
});
static_assert(startValues.size() == 149);

}  // namespace

const ValueRule& menuRule(int number) {
    static constexpr ValueRule unknown = anyNumber();
    for (const int first : equalizerSets) {
        const auto offset = static_cast<std::size_t>(number - first);
        if (number >= first && offset < equalizerItems.size()) return equalizerItems.at(offset);
    }
    const auto* found = std::find_if(knownItems.begin(), knownItems.end(),
                                     [number](const auto& item) { return item.number == number; });
    return found == knownItems.end() ? unknown : found->rule;
}

std::string_view menuStartValue(int number) {
    return startValues.at(static_cast<std::size_t>(number - 1));
}

}  // namespace korvex
