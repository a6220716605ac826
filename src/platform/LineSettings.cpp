#include "platform/LineSettings.h"

#include <algorithm>
#include <array>
#include <optional>

#include "base/AsciiText.h"
#include "base/NumberText.h"

namespace korvex {

namespace {

struct ParityLetter {
    char letter;
    Parity parity;
};
constexpr std::array<ParityLetter, 5> parityLetters = {
    {{'n', Parity::None}, {'e', Parity::Even}, {'o', Parity::Odd}, {'m', Parity::Mark}, {'s', Parity::Space}}};

struct StopBitsText {
    std::string_view text;
    StopBits stopBits;
};
constexpr std::array<StopBitsText, 3> stopBitsTexts = {
    {{"1", StopBits::One}, {"1.5", StopBits::OneAndHalf}, {"2", StopBits::Two}}};

std::vector<std::string_view> splitAtCommas(std::string_view text) {
    std::vector<std::string_view> fields;
    for (;;) {
        const auto comma = text.find(',');
        fields.push_back(trimmed(text.substr(0, comma)));
        if (comma == std::string_view::npos) return fields;
        text.remove_prefix(comma + 1);
    }
}

std::optional<int> speedFrom(std::string_view field) {
    const auto speed = parseWhole(field);
    const auto& known = standardSpeeds();
    if (!speed || std::find(known.begin(), known.end(), *speed) == known.end()) return std::nullopt;
    return speed;
}

std::optional<Parity> parityFrom(std::string_view field) {
    if (field.size() != 1) return std::nullopt;
    for (const auto& entry : parityLetters) {
        if (entry.letter == asciiLower(field.front())) return entry.parity;
    }
    return std::nullopt;
}

std::optional<int> dataBitsFrom(std::string_view field) {
    if (field.size() != 1 || field.front() < '4' || field.front() > '8') return std::nullopt;
    return field.front() - '0';
}

std::optional<StopBits> stopBitsFrom(std::string_view field) {
    for (const auto& entry : stopBitsTexts) {
        if (entry.text == field) return entry.stopBits;
    }
    return std::nullopt;
}

RuntimeError refused(std::string_view text, std::string_view why) {
    return {
        errors::InvalidPropertyValue,
        "Invalid port settings \"" + std::string(text) + "\": " + std::string(why) +
            " Expected are speed, parity (N, E, O, M, S), data bits (4 to 8) and stop bits (1, 1.5, 2), for example "
            "4800,N,8,2."};
}

}  // namespace

const std::vector<int>& standardSpeeds() {
    static const std::vector<int> speeds = {110,   300,   600,   1200,  2400,  4800,   9600,   14400,
                                            19200, 28800, 38400, 56000, 57600, 115200, 128000, 256000};
    return speeds;
}

Result<LineSettings> parseLineSettings(std::string_view text) {
    const auto fields = splitAtCommas(text);
    if (fields.size() != 4) return refused(text, "there must be four fields.");
    const auto speed = speedFrom(fields[0]);
    if (!speed) return refused(text, "the speed is not one of the standard ones (110 to 256000).");
    const auto parity = parityFrom(fields[1]);
    if (!parity) return refused(text, "the parity letter is unknown.");
    const auto dataBits = dataBitsFrom(fields[2]);
    if (!dataBits) return refused(text, "the number of data bits is not possible.");
    const auto stopBits = stopBitsFrom(fields[3]);
    if (!stopBits) return refused(text, "the number of stop bits is not possible.");
    return LineSettings{*speed, *parity, *dataBits, *stopBits};
}

std::string LineSettings::text() const {
    const auto letter = std::find_if(parityLetters.begin(), parityLetters.end(),
                                     [this](const auto& entry) { return entry.parity == parity; });
    const auto stop = std::find_if(stopBitsTexts.begin(), stopBitsTexts.end(),
                                   [this](const auto& entry) { return entry.stopBits == stopBits; });
    return std::to_string(speed) + "," + letter->letter + "," + std::to_string(dataBits) + "," +
           std::string(stop->text);
}

double LineSettings::characterTime() const {
    const double stop = stopBits == StopBits::One ? 1.0 : stopBits == StopBits::OneAndHalf ? 1.5 : 2.0;
    const double bits = 1.0 + dataBits + (parity == Parity::None ? 0.0 : 1.0) + stop;
    return bits * 1000.0 / speed;
}

}  // namespace korvex
