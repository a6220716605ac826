#include "bandstack/BandStackParts.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/NumberText.h"
#include "cat/FrequencyText.h"

namespace korvex {

namespace {

constexpr std::array<std::string_view, 11> bands = {"160 m", "80 m", "60 m", "40 m", "30 m", "20 m",
                                                    "17 m",  "15 m", "12 m", "10 m", "6 m"};

struct Limits {
    int lowest;  // kHz
    int highest;
};
/// Of the widest allocations anywhere.
constexpr std::array<Limits, bands.size()> limits = {{{1'800, 2'000},
                                                      {3'500, 4'000},
                                                      {5'250, 5'450},
                                                      {7'000, 7'300},
                                                      {10'100, 10'150},
                                                      {14'000, 14'350},
                                                      {18'068, 18'168},
                                                      {21'000, 21'450},
                                                      {24'890, 24'990},
                                                      {28'000, 29'700},
                                                      {50'000, 54'000}}};

constexpr std::array<std::pair<std::string_view, std::string_view>, 22> settings = {{{"AC;", "Antenna tuner"},
                                                                                     {"BC0;", "Auto notch"},
                                                                                     {"BP00;", "Manual notch"},
                                                                                     {"CO00;", "Contour"},
                                                                                     {"MD0;", "Mode, VFO A"},
                                                                                     {"MD1;", "Mode, VFO B"},
                                                                                     {"ML0;", "Monitor"},
                                                                                     {"NA0;", "Narrow, VFO A"},
                                                                                     {"NA1;", "Narrow, VFO B"},
                                                                                     {"FA;", "VFO A frequency"},
                                                                                     {"FB;", "VFO B frequency"},
                                                                                     {"GT0;", "AGC, VFO A"},
                                                                                     {"GT1;", "AGC, VFO B"},
                                                                                     {"KR;", "Keyer"},
                                                                                     {"BI;", "Break-in"},
                                                                                     {"NR0;", "Noise reduction"},
                                                                                     {"PA0;", "Preamplifier"},
                                                                                     {"RA0;", "Attenuator"},
                                                                                     {"RF0;", "Roofing filter"},
                                                                                     {"NB0;", "Noise blanker, VFO A"},
                                                                                     {"NB1;", "Noise blanker, VFO B"},
                                                                                     {"AN0;", "Antenna"}}};

/// "14074000" of "FA14074000;"; empty for any other answer.
std::string digitsOfFrequency(const std::string& answer) {
    constexpr std::size_t digits = 8;
    constexpr std::size_t head = 2;
    const bool tells = (answer.starts_with("FA") || answer.starts_with("FB")) && answer.size() == head + digits + 1 &&
                       answer.ends_with(';') && std::all_of(answer.begin() + head, answer.end() - 1, isDigit);
    return tells ? answer.substr(head, digits) : "";
}

/// No command of any register.
BandStackCells nothingToWrite(const BandStackCells& cells) {
    BandStackCells none(cells.rows());
    for (int row = 1; row < none.rows(); ++row) none.set(row, 0, cells.query(row));
    for (int column = 1; column < BandStackCells::columns; ++column) {
        none.set(0, column, "");
        none.set(1, column, "?;");
    }
    return none;
}

void copyColumn(const BandStackCells& from, int column, BandStackCells& to, int toColumn) {
    for (int row = 0; row < from.rows(); ++row) to.set(row, toColumn, from.at(row, column));
}

}  // namespace

int firstOfBand(int column) {
    return column - (column - 1) % BandStackCells::perBand;
}

std::string bandInWords(int column) {
    return std::string(bands.at(static_cast<std::size_t>((column - 1) / BandStackCells::perBand)));
}

std::string registerInWords(int column) {
    return bandInWords(column) + " / " + std::to_string((column - 1) % BandStackCells::perBand + 1);
}

std::string_view settingInWords(std::string_view query, int row) {
    if (row == BandStackCells::antennaAnswer) return "Antenna found";
    if (row == BandStackCells::antennaCommand) return "Antenna set";
    const auto* const found =
        std::find_if(settings.begin(), settings.end(), [&](const auto& setting) { return setting.first == query; });
    return found == settings.end() ? std::string_view() : found->second;
}

int bandOfFrequency(const std::string& answer) {
    const auto hertz = parseWhole(digitsOfFrequency(answer));
    if (!hertz) return -1;
    const auto* const found = std::find_if(limits.begin(), limits.end(), [&](const Limits& band) {
        return *hertz >= band.lowest * 1000 && *hertz <= band.highest * 1000;
    });
    return found == limits.end() ? -1 : static_cast<int>(found - limits.begin());
}

std::string readableAnswer(const std::string& answer) {
    const std::string digits = digitsOfFrequency(answer);
    return digits.empty() ? answer : groupedFrequency(digits);
}

bool isWholeRegister(const BandStackCells& cells, int column) {
    constexpr int inEveryFile = 20;
    for (int row = 1; row <= inEveryFile; ++row) {
        if (cells.at(row, column).empty()) return false;
    }
    return true;
}

BandStackCells onlyBandOf(const BandStackCells& cells, int column) {
    BandStackCells part = nothingToWrite(cells);
    const int first = firstOfBand(column);
    for (int i = first; i < first + BandStackCells::perBand; ++i) copyColumn(cells, i, part, i);
    return part;
}

BandStackCells onlyRegisterOf(const BandStackCells& cells, int column) {
    BandStackCells part = nothingToWrite(cells);
    const int first = firstOfBand(column);
    copyColumn(cells, column, part, first);
    part.set(0, first, "");
    return part;
}

}  // namespace korvex
