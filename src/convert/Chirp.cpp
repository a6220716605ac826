#include "convert/Chirp.h"

#include <algorithm>
#include <array>
#include <optional>

#include "base/CodePage.h"
#include "base/NumberText.h"
#include "cat/FrequencyText.h"
#include "convert/ChannelWords.h"
#include "convert/Table.h"
#include "memory/MemoryCodes.h"
#include "memory/MemoryListFile.h"

namespace korvex {

namespace {

constexpr int hzPerMHz = 1'000'000;
constexpr std::size_t longestName = 50;         // characters
constexpr std::string_view usualTone = "88.5";  // what CHIRP has where no tone is used

/// How a mode of either side is called on the other. The first row with a code, or with a name, counts.
struct ModePair {
    char code;  ///< of the radio; 0: it has no such mode, and takes what stands in `nearest`
    std::string_view name;
    char nearest = 0;
    bool exact = true;
};

constexpr std::array<ModePair, 18> modes = {{
    {'1', "LSB"},
    {'2', "USB"},
    {'3', "CW"},
    {'4', "FM"},
    {'5', "AM"},
    {'6', "RTTY"},
    {'7', "CWR"},
    {'8', "PKT"},
    {'9', "RTTYR"},
    {'B', "NFM"},
    {'C', "DIG"},
    {'A', "FM", 0, false},  // packet FM
    {0, "FSK", '6'},
    {0, "FSKR", '9'},
    {0, "NCW", '3', false},
    {0, "NCWR", '7', false},
    {0, "NAM", '5', false},
    {0, "Auto", '2', false},
}};

const ModePair* modeOfCode(const std::string& code) {
    const auto* found = std::find_if(modes.begin(), modes.end(),
                                     [&](const ModePair& mode) { return code.size() == 1 && mode.code == code[0]; });
    return found == modes.end() ? nullptr : found;
}

const ModePair* modeNamed(const std::string& name) {
    const auto* found =
        std::find_if(modes.begin(), modes.end(), [&](const ModePair& mode) { return mode.name == name; });
    return found == modes.end() ? nullptr : found;
}

std::string inMHz(int hz) {
    return std::to_string(hz / hzPerMHz) + "." + zeroPadded(hz % hzPerMHz, 6);
}

/// "14.25" in Hz. Nothing for what is no such number, or has a fraction of a Hz.
std::optional<int> hzIn(const std::string& mhz) {
    const auto point = mhz.find('.');
    const std::string whole = mhz.substr(0, point);
    std::string fraction = point == std::string::npos ? "" : mhz.substr(point + 1);
    const auto isNumber = [](const std::string& text) { return std::all_of(text.begin(), text.end(), isDigit); };
    if (whole.empty() || whole.size() > 3 || !isNumber(whole) || !isNumber(fraction)) return std::nullopt;
    if (fraction.size() > 6 && fraction.find_first_not_of('0', 6) != std::string::npos) return std::nullopt;
    fraction.resize(6, '0');
    return *parseWhole(whole) * hzPerMHz + *parseWhole(fraction);
}

/// What is lost of one channel.
class Losses {
public:
    Losses(std::vector<std::string>& all, std::string channel) : m_all(all), m_channel(std::move(channel)) {}
    void note(const std::string& what) { m_all.push_back("channel " + m_channel + ": " + what); }

private:
    std::vector<std::string>& m_all;
    std::string m_channel;
};

// --- to CHIRP

std::string modeToChirp(const std::string& code, Losses& losses) {
    const ModePair* mode = modeOfCode(code);
    if (mode == nullptr) {
        losses.note("the mode with the code " + utf8FromWire(code) + " is written as USB");
        return "USB";
    }
    const auto position = modeTable.position(code);
    if (!mode->exact && position) {
        losses.note("the mode " + std::string(modeTable.label(*position)) + " is written as " +
                    std::string(mode->name));
    }
    return std::string(mode->name);
}

void noteWhatChirpLacks(const MemoryRecord& record, Losses& losses) {
    if (record[MemoryField::RxClarifier] != "0" || record[MemoryField::TxClarifier] != "0" ||
        record[MemoryField::ClarifierOffset] != "0000") {
        losses.note("the clarifier " + record[MemoryField::ClarifierDirection] + record[MemoryField::ClarifierOffset] +
                    " Hz is left out");
    }
    if (record[MemoryField::Shift] != "0") {
        losses.note("the shift has no offset: menu items 076 and 077 of the radio hold it");
    }
    if (const std::size_t length = record[MemoryField::Remark].size(); length > longestName) {
        losses.note("the remark has " + std::to_string(length) +
                    " characters: the table has them all, but CHIRP cuts a name to what a radio takes");
    }
}

std::string toneOf(const MemoryRecord& record) {
    const auto position = toneTable.position(record[MemoryField::ToneNumber]);
    return position ? std::string(toneTable.label(*position)) : std::string(usualTone);
}

TableRow chirpRow(const MemoryRecord& record, Losses& losses) {
    const std::string& toneMode = record[MemoryField::CtcssMode];
    const std::string& shift = record[MemoryField::Shift];
    const std::string tone = toneOf(record);
    noteWhatChirpLacks(record, losses);
    return {std::to_string(channelNamed(record[MemoryField::Channel])),
            utf8FromWire(record[MemoryField::Remark]),
            inMHz(parseWhole(record[MemoryField::Frequency]).value_or(0)),
            shift == "1"   ? "+"
            : shift == "2" ? "-"
                           : "",
            "0.000000",
            toneMode == "1"   ? "TSQL"
            : toneMode == "2" ? "Tone"
                              : "",
            tone,
            tone,
            "023",
            "NN",
            modeToChirp(record[MemoryField::Mode], losses),
            "5.00",
            "",
            "",
            "",
            "",
            "",
            ""};
}

// --- from CHIRP

bool takeFrequency(const NamedTable& table, std::size_t row, MemoryRecord& record, Losses& losses) {
    const std::string cell = table.word(row, "Frequency");
    const auto hz = hzIn(cell);
    if (!hz || *hz < lowestTunable || *hz > highestTunable) {
        losses.note("left out, the radio does not tune " + cell + " MHz");
        return false;
    }
    record[MemoryField::Frequency] = zeroPadded(*hz, 8);
    return true;
}

bool takeMode(const std::string& name, MemoryRecord& record, Losses& losses) {
    const ModePair* mode = modeNamed(name.empty() ? "USB" : name);
    if (mode == nullptr) {
        losses.note("left out, the radio has no mode " + name);
        return false;
    }
    record[MemoryField::Mode] = std::string(1, mode->code != 0 ? mode->code : mode->nearest);
    const auto position = modeTable.position(record[MemoryField::Mode]);
    if (!mode->exact && position) {
        losses.note("the mode " + name + " is taken as " + std::string(modeTable.label(*position)));
    }
    return true;
}

void takeTone(const NamedTable& table, std::size_t row, MemoryRecord& record, Losses& losses) {
    const std::string mode = table.word(row, "Tone");
    const bool squelch = mode == "TSQL";
    record[MemoryField::CtcssMode] = squelch ? "1" : mode == "Tone" ? "2" : "0";
    if (!mode.empty() && !squelch && mode != "Tone") losses.note("the tone mode " + mode + " is left out");
    std::string tone = table.word(row, squelch ? "cToneFreq" : "rToneFreq");
    if (tone.empty()) tone = usualTone;
    for (int i = 0; i < toneTable.size(); ++i) {
        if (toneTable.label(i) == tone) record[MemoryField::ToneNumber] = toneTable.code(i);
    }
    if (!record[MemoryField::ToneNumber].empty()) return;
    record[MemoryField::ToneNumber] = "00";
    record[MemoryField::CtcssMode] = "0";
    losses.note("the radio has no tone of " + tone + " Hz");
}

void takeShift(const NamedTable& table, std::size_t row, MemoryRecord& record, Losses& losses) {
    const std::string duplex = table.word(row, "Duplex");
    record[MemoryField::Shift] = duplex == "+" ? "1" : duplex == "-" ? "2" : "0";
    const std::string offset = table.word(row, "Offset");
    if (record[MemoryField::Shift] != "0" && hzIn(offset).value_or(0) != 0) {
        losses.note("the offset " + offset + " MHz is left out: menu items 076 and 077 of the radio hold it");
    }
    if (record[MemoryField::Shift] == "0" && !duplex.empty()) losses.note("the duplex \"" + duplex + "\" is left out");
}

void takeRemark(const NamedTable& table, std::size_t row, MemoryRecord& record, Losses& losses) {
    const std::string name = table.word(row, "Name");
    const std::string comment = table.word(row, "Comment");
    std::string remark = name + (name.empty() || comment.empty() ? "" : " ") + comment;
    if (remark.find_first_of(",\r\n") != std::string::npos) {
        std::replace_if(
            remark.begin(), remark.end(), [](char c) { return c == ',' || c == '\r' || c == '\n'; }, ' ');
        losses.note("commas and line ends of the remark became blanks");
    }
    while (const auto character = firstInexpressible(remark)) {
        losses.note("the remark's character \"" + *character + "\" became \"?\"");
        for (auto at = remark.find(*character); at != std::string::npos; at = remark.find(*character)) {
            remark.replace(at, character->size(), "?");
        }
    }
    record[MemoryField::Remark] = wireFromUtf8(remark).value_or("");
}

void noteWhatTheRadioLacks(const NamedTable& table, std::size_t row, Losses& losses) {
    for (const auto* column : {"Skip", "Power", "URCALL", "RPT1CALL", "RPT2CALL", "DVCODE"}) {
        const std::string cell = table.word(row, column);
        if (!cell.empty()) losses.note(std::string(column) + " \"" + cell + "\" is left out");
    }
}

}  // namespace

ChirpExport chirpFrom(const std::vector<MemoryRecord>& channels) {
    ChirpExport result;
    Table table{{"Location", "Name", "Frequency", "Duplex", "Offset", "Tone", "rToneFreq", "cToneFreq", "DtcsCode",
                 "DtcsPolarity", "Mode", "TStep", "Skip", "Comment", "URCALL", "RPT1CALL", "RPT2CALL", "DVCODE"}};
    for (const auto& record : channels) {
        Losses losses(result.losses, record[MemoryField::Channel]);
        table.push_back(chirpRow(record, losses));
    }
    result.csv = csvText(table).substr(3);  // CHIRP takes a byte order mark for a part of the first title
    return result;
}

Result<ChirpImport> channelsFromChirp(std::string_view csv) {
    const auto table = NamedTable::read(csv, {"Location", "Frequency"});
    if (!table) return table.error();
    ChirpImport result;
    for (std::size_t row = 0; row < table->rows(); ++row) {
        const std::string location = table->word(row, "Location");
        const int channel = channelNamed(location);
        Losses losses(result.losses, location);
        if (channel == 0 || result.channels.contains(channel)) {
            losses.note(channel == 0 ? "left out, the radio has the channels 1 to 99" : "left out, it is there twice");
            continue;
        }
        MemoryRecord record;
        record[MemoryField::Channel] = zeroPadded(channel, 3);
        record[MemoryField::ClarifierDirection] = "+";
        record[MemoryField::ClarifierOffset] = "0000";
        for (const auto field : {MemoryField::RxClarifier, MemoryField::TxClarifier, MemoryField::FixedDigit})
            record[field] = "0";
        if (!takeFrequency(*table, row, record, losses)) continue;
        if (!takeMode(table->word(row, "Mode"), record, losses)) continue;
        takeTone(*table, row, record, losses);
        takeShift(*table, row, record, losses);
        takeRemark(*table, row, record, losses);
        noteWhatTheRadioLacks(*table, row, losses);
        result.channels[channel] = std::move(record);
    }
    return result;
}

bool isChirp(std::string_view csv) {
    const auto table = NamedTable::read(csv, {"Location", "Frequency", "Mode"});
    return table && (table->has("Duplex") || table->has("rToneFreq"));
}

}  // namespace korvex
