#include <array>

#include "base/NumberText.h"
#include "radio/ChannelRecord.h"
#include "radio/MenuItems.h"
#include "radio/RadioState.h"

namespace korvex {

namespace {

struct Tuned {
    int frequency;
    char mode;
};

/// Three registers a band, in band order from 1.8 to 50 MHz.
constexpr std::array<Tuned, RadioState::allRegisters> tunedRegisters = {{
    {1'822'500, '3'},  {1'843'000, '1'},  {1'838'100, '8'},   // 160 m
    {3'520'000, '3'},  {3'699'000, '1'},  {3'770'000, '1'},   // 80 m
    {5'357'000, '2'},  {5'363'000, '2'},  {5'354'500, '3'},   // 60 m
    {7'012'000, '3'},  {7'074'000, 'C'},  {7'135'500, '1'},   // 40 m
    {10'103'000, '3'}, {10'136'000, 'C'}, {10'142'500, '6'},  // 30 m
    {14'195'000, '2'}, {14'025'000, '3'}, {14'085'000, '9'},  // 20 m
    {18'080'000, '3'}, {18'130'000, '2'}, {18'100'000, 'C'},  // 17 m
    {21'018'500, '7'}, {21'295'000, '2'}, {21'074'000, 'C'},  // 15 m
    {24'902'000, '3'}, {24'950'000, '2'}, {24'915'000, 'C'},  // 12 m
    {28'495'000, '2'}, {29'050'000, '5'}, {29'600'000, '4'},  // 10 m
    {50'090'000, '3'}, {50'150'000, '2'}, {51'510'000, 'B'},  // 6 m
}};

struct Memory {
    int channel;
    std::string_view record;
};

constexpr auto filledMemories = std::to_array<Memory>({
    {1, "14074000+000000C00000"},                                   // digital, 20 m
    {2, "07030000-012510300000"},                                   // QRP with the receive clarifier on
    {3, "03573000+000000C00000"},   {4, "14230000+000000200000"},   // slow scan
    {5, "10116000+005011300000"},                                   // clarifier on both ways
    {7, "07144000+000000100000"},   {8, "14100000+000000300000"},   // beacons
    {10, "03760000+000000100000"},  {11, "06070000+000000500000"},  // broadcast
    {12, "01845000-003001100000"},  {20, "10000000+000000500000"},  // time signal
    {21, "04996000+000000500000"},  {25, "14085000+000000900000"},
    {30, "29620000+000000402082"},  // FM repeaters
    {31, "29660000+000000402122"},  {32, "51810000+000000402162"},
    {33, "51510000+000000400000"},  {34, "29680000+000000401081"},
    {40, "28200000+000000700000"},  {50, "21285000+999900200000"},  // the largest clarifier offset
    {51, "27555000-999910200000"},  {75, "00153000+000000500000"},  // long wave
    {76, "50313000+000000C00000"},  {98, "10147600+000000A00000"},
    {99, "18068000+000000300490"},  {100, "14000000+000000300000"},  // the first pair of scan limits
    {101, "14070000+000000300000"},
});

constexpr std::array<std::string_view, RadioState::keyerTexts> keyerTexts = {
    "CQ CQ CQ DE DL1XYZ DL1XYZ PSE K", "DE DL1XYZ", "UR RST 599 599 = NAME KARL KARL = QTH ULM ULM = K", "",
    "TNX FER QSO 73 <SK> EE"};

bool isCw(char mode) {
    return mode == '3' || mode == '7';
}

/// The registers differ not in frequency and mode alone: antennas, filters and the like go with them.
void varyRegister(Values& values, std::size_t index) {
    const Tuned& tuned = tunedRegisters.at(index);
    const auto digit = [](std::size_t number) { return std::to_string(number); };
    values["FA"] = zeroPadded(tuned.frequency, 8);
    values["MD0"] = std::string(1, tuned.mode);
    values["NA0"] = isCw(tuned.mode) ? "1" : "0";
    values["AC00"] = digit(index % 2);
    values["AN0"] = index < 9 ? "2" : "1";
    values["AN5"] = index == 0 || index == 2 ? "1" : "0";
    values["BC0"] = isCw(tuned.mode) ? "0" : digit(index % 3 / 2);
    values["BP00"] = index % 7 == 3 ? "001" : "000";
    values["CO00"] = index % 5 == 4 ? "01" : "00";
    values["GT0"] = isCw(tuned.mode) ? "1" : digit(4 - index % 3);
    values["NB0"] = digit(index % 3);
    values["NR0"] = digit(index / 3 % 2);
    values["PA0"] = digit(index / 15);
    values["RA0"] = index < 12 ? digit(1 + index % 3) : "0";
    values["RF0"] = isCw(tuned.mode) ? "3" : digit(index % 2 * 2);
}

Values startValues(Home first, Home second) {
    Values values;
    for (const auto& setting : allSettings()) {
        if (setting.home == first || setting.home == second) values.emplace(setting.key, setting.start);
    }
    return values;
}

}  // namespace

RadioState ownersRadio() {
    RadioState state;
    state.radio = startValues(Home::Radio, Home::Radio);
    for (std::size_t i = 0; i < state.registers.size(); ++i) {
        state.registers.at(i) = startValues(Home::Register, Home::Tuning);
        varyRegister(state.registers.at(i), i);
    }
    constexpr int twentyMetres = 5;
    state.band = twentyMetres;
    for (const auto& memory : filledMemories) {
        state.memories.at(static_cast<std::size_t>(memory.channel)) = memory.record;
    }
    for (std::size_t i = 0; i < keyerTexts.size(); ++i) state.keyer.at(i + 1) = keyerTexts.at(i);
    for (int number = 1; number <= RadioState::menuItems; ++number) {
        state.menu.at(static_cast<std::size_t>(number)) = menuStartValue(number);
    }
    return state;
}

}  // namespace korvex
