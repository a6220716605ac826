#include "backup/BackupReadings.h"

#include <map>

#include "backup/Objections.h"
#include "bandstack/BandStackFile.h"
#include "keyer/KeyerFile.h"
#include "memory/MemoryFile.h"
#include "memory/MemoryListFile.h"
#include "menu/MenuFile.h"

namespace korvex {

BackupReadings::BackupReadings(CatLink& link, Clock& clock)
    : m_modelReader(link),
      m_menuReader(link),
      m_memoryReader(link),
      m_bandStackReader(link, clock),
      m_keyerReader(link) {
    m_all = {modelReading(), menuReading(), memoryReading(), bandStackReading(), keyerReading()};
}

const BackupReading& BackupReadings::of(const std::string& kind) const {
    static const std::map<std::string, std::size_t> places = {
        {"menu", 1}, {"memory", 2}, {"list", 2}, {"bandstack", 3}, {"keyer", 4}};
    return m_all.at(places.at(kind));
}

BackupReading BackupReadings::modelReading() {
    return {"model",
            [this] { m_modelReader.read(); },
            [this] { m_modelReader.stop(); },
            &m_modelReader.ended,
            [] { return std::string(); },
            [] { return std::vector<BackupFile>(); }};
}

BackupReading BackupReadings::menuReading() {
    return {"menu",
            [this] { m_menuReader.read(); },
            [this] { m_menuReader.stop(); },
            &m_menuReader.ended,
            [this] { return objections::toMenuWithRefusals(m_menuReader.answers()); },
            [this] {
                return std::vector<BackupFile>{{"menu", menuFileText(m_menuReader.answers())}};
            },
            [this] { return objections::toMenu(m_menuReader.answers()); }};
}

BackupReading BackupReadings::memoryReading() {
    return {"memories",
            [this] { m_memoryReader.read(ActiveOperation::ReadAllToFile, "Save Memories of  FT-2000"); },
            [this] { m_memoryReader.stop(); },
            &m_memoryReader.ended,
            [this] { return objections::toMemories(m_memoryReader); },
            [this] { return memoryFiles(); },
            {},
            [this] {
                const bool all = static_cast<int>(m_memoryReader.damaged().size()) == m_memoryReader.found();
                return all ? objections::toMemories(m_memoryReader) : "";
            },
            [this] { return m_memoryReader.remarks(); }};
}

/// A list that is filled from the answers says the same as one that the radio is asked for a second time. A channel
/// that came through damaged is in neither.
std::vector<BackupFile> BackupReadings::memoryFiles() {
    const MemoryTable table = m_memoryReader.undamaged();
    std::vector<std::string> missing;
    for (const auto& channel : m_memoryReader.damaged()) missing.push_back(channel + ", which came through damaged");
    m_list.replaceAll({});
    m_list.fillListFromMemoryTable(table);
    const auto list = memoryListFileText(m_list);  // only remarks can be refused, and a radio has none
    const int count = m_memoryReader.found() - static_cast<int>(missing.size());
    return {{"memory", memoryFileText(table, count), missing}, {"list", list ? *list : std::string()}};
}

BackupReading BackupReadings::bandStackReading() {
    return {"band stack",
            [this] { m_bandStackReader.read(); },
            [this] { m_bandStackReader.stop(); },
            &m_bandStackReader.ended,
            [this] { return objections::toBandStack(m_bandStackReader.cells()); },
            [this] {
                return std::vector<BackupFile>{{"bandstack", bandStackFileText(m_bandStackReader.cells())}};
            }};
}

BackupReading BackupReadings::keyerReading() {
    return {"keyer",
            [this] { m_keyerReader.read(); },
            [this] { m_keyerReader.stop(); },
            &m_keyerReader.ended,
            [this] { return objections::toKeyerTextsWithRefusals(m_keyerReader); },
            [this] { return std::vector<BackupFile>{keyerFile()}; },
            [this] {
                const std::string objection = objections::toKeyerTexts(m_keyerReader);
                const auto missing = keyerFile().missing;
                return objection.empty() && !missing.empty() ? missing.front() : objection;
            }};
}

/// A text that a keyer file has no room for is left out, as one that the radio refuses to tell: an empty text changes
/// nothing in the radio when it is written.
BackupFile BackupReadings::keyerFile() const {
    KeyerTexts texts = m_keyerReader.texts();
    std::vector<std::string> missing;
    for (int memory = 1; memory <= keyerMemories; ++memory) {
        std::string why = m_keyerReader.wasRefused(memory) ? "" : whyNotStorable(keyerText(texts, memory));
        if (why.empty() && !m_keyerReader.wasRefused(memory)) continue;
        keyerText(texts, memory) = {};
        missing.push_back(keyerHead(memory) + (why.empty() ? "" : ", which cannot be kept in a file: " + why));
    }
    return {"keyer", keyerFileText(keyerFileRows(texts)), missing};
}

}  // namespace korvex
