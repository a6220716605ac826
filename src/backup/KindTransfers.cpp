#include "backup/KindTransfers.h"

#include <algorithm>

#include "backup/Objections.h"
#include "bandstack/BandStackFile.h"
#include "base/NumberText.h"
#include "keyer/KeyerFile.h"
#include "memory/MemoryFile.h"
#include "memory/MemoryListFile.h"
#include "memory/MemoryRecord.h"
#include "menu/MenuFile.h"

namespace korvex {

namespace {

std::vector<std::string> commandsOf(const DataItems& items) {
    std::vector<std::string> commands;
    for (const auto& item : items) {
        if (!item.command.empty()) commands.push_back(item.command);
    }
    return commands;
}

/// The bands without items are marked as refused, which the writer passes over.
BandStackCells cellsOf(const DataItems& items) {
    BandStackCells cells;
    std::map<std::string, std::pair<int, int>> places;
    for (int column = 1; column < BandStackCells::columns; ++column) {
        cells.set(1, column, "?;");
        for (int row = 0; row <= BandStackCells::lastQueried; ++row)
            places[cellName(cells, row, column)] = {row, column};
    }
    for (const auto& item : items) {
        const auto place = places.find(item.name);
        if (place == places.end()) continue;
        const auto [row, column] = place->second;
        cells.set(row, column, row == 0 ? item.command : item.value);
    }
    return cells;
}

KeyerTexts textsOf(const DataItems& items) {
    KeyerTexts texts;
    for (int memory = 1; memory <= keyerMemories; ++memory) {
        for (const auto& item : items) {
            if (item.name == keyerHead(memory)) keyerText(texts, memory) = WireText(item.value);
        }
    }
    return texts;
}

/// "05.2 MD0", and not what was asked beside the registers.
bool isCell(const std::string& item) {
    constexpr std::size_t point = 2;
    return item.size() > point && item[point] == '.';
}

std::string bandOf(const std::string& cell) {
    return cell.substr(0, 2);
}

/// A band is walked through as a whole: nobody knows at which of its registers the radio stands now.
void leaveOutPartBands(ReadSoFar::Reading& reading) {
    if (reading.isWhole) return;
    std::map<std::string, int> known;
    for (const auto& [item, answer] : reading.answers) known[bandOf(item)] += isCell(item) ? 1 : 0;
    std::erase_if(reading.answers, [&](const auto& one) {
        return isCell(one.first) && known[bandOf(one.first)] < BandStackCells::perBand * BandStackCells::lastQueried;
    });
}

std::vector<std::string> damagedIn(const MemoryReader& reader) {
    std::vector<std::string> missing;
    for (const auto& channel : reader.damaged())
        missing.push_back(channel + ", which came through damaged or as another channel");
    return missing;
}

std::vector<BackupJournal::Told> toldOf(const MemoryReader& reader, ChannelRange range) {
    std::vector<BackupJournal::Told> told;
    for (int channel = range.first; channel <= range.last; ++channel) {
        told.push_back({channelText(channel), memoryReadCommand(channel), reader.told(channel)});
    }
    return told;
}

/// Nothing is worth a backup where everything came through damaged.
std::string ruinOf(const MemoryReader& reader) {
    const bool all = static_cast<int>(reader.damaged().size()) == reader.found();
    return all ? objections::toMemories(reader) : "";
}

}  // namespace

KindTransfers::KindTransfers(CatLink& link, OwnersFiles& files, Clock& clock)
    : m_modelReader(link),
      m_menuReader(link),
      m_memoryReader(link),
      m_scanLimitReader(link),
      m_bandStackReader(link, clock),
      m_keyerReader(link),
      m_menuWriter(link),
      m_memoryWriter(link, files, m_unused),
      m_bandStackWriter(link),
      m_walk(link, m_bandStackReader, m_bandStackWriter),
      m_keyerWriter(link) {
    m_readings = {modelReading(),     menuReading(),      memoryReading(),
                  scanLimitReading(), bandStackReading(), keyerReading()};
    addWritings();
}

void KindTransfers::addWritings() {
    const auto writeMemories = [this](const DataItems& items) { m_memoryWriter.write(commandsOf(items)); };
    m_writings = {
        {"menu", {[this](const DataItems& items) { m_menuWriter.write(commandsOf(items)); }, &m_menuWriter.ended}},
        {"memory", {writeMemories, &m_memoryWriter.ended}},
        {"list", {writeMemories, &m_memoryWriter.ended}},
        {"scanlimits", {writeMemories, &m_memoryWriter.ended}},
        {"bandstack", {[this](const DataItems& items) { m_walk.write(cellsOf(items)); }, &m_walk.ended}},
        {"keyer", {[this](const DataItems& items) { m_keyerWriter.write(textsOf(items)); }, &m_keyerWriter.ended}}};
}

const KindReading& KindTransfers::reading(const FileKind& kind) const {
    const auto has = [&](const KindReading& reading) {
        return std::find(reading.kinds.begin(), reading.kinds.end(), kind.name) != reading.kinds.end();
    };
    return *std::find_if(m_readings.begin(), m_readings.end(), has);
}

BackupFile KindTransfers::file(const FileKind& kind) const {
    const auto files = reading(kind).files();
    return *std::find_if(files.begin(), files.end(), [&](const BackupFile& file) { return file.kind == &kind; });
}

KindReading KindTransfers::modelReading() {
    return {"model",
            {},
            [this] { m_modelReader.read(); },
            [this] { m_modelReader.stop(); },
            &m_modelReader.ended,
            [] { return std::string(); },
            [] { return std::vector<BackupFile>(); }};
}

KindReading KindTransfers::menuReading() {
    return {"menu",
            {"menu"},
            [this] { m_menuReader.read(); },
            [this] { m_menuReader.stop(); },
            &m_menuReader.ended,
            [this] { return objections::toMenuWithRefusals(m_menuReader.answers()); },
            [this] {
                return std::vector<BackupFile>{{fileKind("menu"), menuFileText(m_menuReader.answers())}};
            },
            [this] { return objections::toMenu(m_menuReader.answers()); },
            {},
            {},
            [this] { return toldOfMenu(); }};
}

KindReading KindTransfers::memoryReading() {
    return {"memories",
            {"memory", "list"},
            [this] { m_memoryReader.read(ActiveOperation::ReadAllToFile, "Save Memories of  FT-2000"); },
            [this] { m_memoryReader.stop(); },
            &m_memoryReader.ended,
            [this] { return objections::toMemories(m_memoryReader); },
            [this] { return memoryFiles(); },
            {},
            [this] { return ruinOf(m_memoryReader); },
            [this] { return m_memoryReader.remarks(); },
            [this] { return toldOfMemories(); }};
}

/// A list that is filled from the answers says the same as one that the radio is asked for a second time. A channel
/// that came through damaged is in neither.
std::vector<BackupFile> KindTransfers::memoryFiles() {
    const MemoryTable table = m_memoryReader.undamaged();
    const auto missing = damagedIn(m_memoryReader);
    m_list.replaceAll({});
    m_list.fillListFromMemoryTable(table);
    const auto list = memoryListFileText(m_list);  // only remarks can be refused, and a radio has none
    const int count = m_memoryReader.found() - static_cast<int>(missing.size());
    return {{fileKind("memory"), memoryFileText(table, count), missing},
            {fileKind("list"), list ? *list : std::string()}};
}

KindReading KindTransfers::scanLimitReading() {
    return {"scan limits",
            {"scanlimits"},
            [this] { m_scanLimitReader.readScanLimits("Save Scan Limits of FT-2000"); },
            [this] { m_scanLimitReader.stop(); },
            &m_scanLimitReader.ended,
            [this] { return objections::toMemories(m_scanLimitReader); },
            [this] { return std::vector{scanLimitFile()}; },
            {},
            [this] { return ruinOf(m_scanLimitReader); },
            [this] { return m_scanLimitReader.remarks(); },
            [this] { return toldOfScanLimits(); }};
}

BackupFile KindTransfers::scanLimitFile() const {
    const auto missing = damagedIn(m_scanLimitReader);
    const int count = m_scanLimitReader.found() - static_cast<int>(missing.size());
    return {fileKind("scanlimits"), memoryFileText(m_scanLimitReader.undamaged(), count), missing};
}

KindReading KindTransfers::bandStackReading() {
    return {"band stack",
            {"bandstack"},
            [this] { m_walk.read(); },
            [this] { m_walk.stop(); },
            &m_walk.ended,
            [this] { return objections::toBandStack(m_bandStackReader.cells()); },
            [this] {
                return std::vector<BackupFile>{{fileKind("bandstack"), bandStackFileText(m_bandStackReader.cells())}};
            },
            {},
            {},
            [this] { return whyNotHome().empty() ? std::vector<std::string>() : std::vector{whyNotHome()}; },
            [this] { return toldOfBandStack(); },
            leaveOutPartBands};
}

KindReading KindTransfers::keyerReading() {
    return {"keyer",
            {"keyer"},
            [this] { m_keyerReader.read(); },
            [this] { m_keyerReader.stop(); },
            &m_keyerReader.ended,
            [this] { return objections::toKeyerTextsWithRefusals(m_keyerReader); },
            [this] { return std::vector<BackupFile>{keyerFile()}; },
            [this] {
                const std::string objection = objections::toKeyerTexts(m_keyerReader);
                const auto missing = keyerFile().missing;
                return objection.empty() && !missing.empty() ? missing.front() : objection;
            },
            {},
            {},
            [this] { return toldOfKeyer(); }};
}

/// A text that a keyer file has no room for is left out, as one that the radio refuses to tell: an empty text changes
/// nothing in the radio when it is written.
BackupFile KindTransfers::keyerFile() const {
    KeyerTexts texts = m_keyerReader.texts();
    std::vector<std::string> missing;
    for (int memory = 1; memory <= keyerMemories; ++memory) {
        std::string why = m_keyerReader.wasRefused(memory) ? "" : whyNotStorable(keyerText(texts, memory));
        if (why.empty() && !m_keyerReader.wasRefused(memory)) continue;
        keyerText(texts, memory) = {};
        missing.push_back(keyerHead(memory) + (why.empty() ? "" : ", which cannot be kept in a file: " + why));
    }
    return {fileKind("keyer"), keyerFileText(keyerFileRows(texts)), missing};
}

std::vector<BackupJournal::Told> KindTransfers::toldOfMenu() const {
    std::vector<BackupJournal::Told> told;
    for (int item = 1; item <= menuItemCount; ++item) {
        told.push_back({zeroPadded(item, 3), menuReadCommand(item), m_menuReader.answers().answer(item)});
    }
    return told;
}

std::vector<BackupJournal::Told> KindTransfers::toldOfMemories() const {
    return toldOf(m_memoryReader, {});
}

std::vector<BackupJournal::Told> KindTransfers::toldOfScanLimits() const {
    return toldOf(m_scanLimitReader, scanLimits);
}

std::vector<BackupJournal::Told> KindTransfers::toldOfBandStack() const {
    const BandStackCells& cells = m_bandStackReader.cells();
    std::vector<BackupJournal::Told> told;
    for (int column = 1; column < BandStackCells::columns; ++column) {
        for (int row = 1; row <= BandStackCells::lastQueried; ++row) {
            told.push_back({cellName(cells, row, column), cells.query(row), cells.at(row, column)});
        }
    }
    return told;
}

std::vector<BackupJournal::Told> KindTransfers::toldOfKeyer() const {
    std::vector<BackupJournal::Told> told;
    for (int memory = 1; memory <= keyerMemories; ++memory) {
        const bool refused = m_keyerReader.wasRefused(memory);
        const std::string text = keyerWriteCommand(memory, keyerText(m_keyerReader.texts(), memory));
        told.push_back({keyerHead(memory), keyerReadCommand(memory), refused ? "?;" : text});
    }
    return told;
}

}  // namespace korvex
