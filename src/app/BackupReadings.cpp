#include "app/BackupReadings.h"

#include "app/Objections.h"
#include "bandstack/BandStackFile.h"
#include "keyer/KeyerFile.h"
#include "memory/MemoryListFile.h"
#include "menu/MenuFile.h"

namespace korvex {

BackupReadings::BackupReadings(Terminal& terminal, Clock& clock)
    : m_modelReader(terminal.link(), clock),
      m_menuReader(terminal, clock, m_menu, ActiveOperation::BackupMenu),
      m_memoryReader(terminal, clock, m_memories, m_list, ActiveOperation::BackupMemories),
      m_bandStackReader(terminal, clock, m_bandStack, ActiveOperation::BackupBandStack),
      m_keyerReader(terminal.link()) {
    const auto noDialog = [] { return TransferEnd::Done; };
    m_menuReader.saveFile = noDialog;
    m_memoryReader.saveFile = noDialog;
    m_all = {modelReading(), menuReading(), memoryReading(), bandStackReading(), keyerReading()};
}

BackupReading BackupReadings::modelReading() {
    return {"model",
            ActiveOperation::BackupModel,
            [this] { m_modelReader.read(); },
            [this] { m_modelReader.stop(); },
            &m_modelReader.ended,
            [] { return std::string(); },
            [] { return std::vector<BackupFile>(); }};
}

BackupReading BackupReadings::menuReading() {
    return {"menu",
            ActiveOperation::BackupMenu,
            [this] { m_menuReader.mnu_Store_Click(); },
            [this] { m_menuReader.stop(); },
            &m_menuReader.ended,
            [this] { return objections::toMenuWithRefusals(m_menu); },
            [this] {
                return std::vector<BackupFile>{{"menu", menuFileText(m_menu)}};
            }};
}

BackupReading BackupReadings::memoryReading() {
    return {"memories",
            ActiveOperation::BackupMemories,
            [this] {
                m_memories = {};
                m_memoryReader.mnu_saveMem_Click();
            },
            [this] { m_memoryReader.stop(); },
            &m_memoryReader.ended,
            [this] { return objections::toMemories(m_memoryReader); },
            [this] {
                return std::vector<BackupFile>{{"memory", m_memoryReader.fileText()}, {"list", listFileText()}};
            }};
}

/// A list that is filled from the answers says the same as one that the radio is asked for a second time.
std::string BackupReadings::listFileText() {
    m_list.replaceAll({});
    m_list.fillListFromMemoryTable(m_memories);
    const auto text = memoryListFileText(m_list);
    return text ? *text : std::string();  // only remarks can be refused, and a radio has none
}

BackupReading BackupReadings::bandStackReading() {
    return {"band stack",
            ActiveOperation::BackupBandStack,
            [this] { m_bandStackReader.mnu_readBandStack_Click(); },
            [this] { m_bandStackReader.stop(); },
            &m_bandStackReader.ended,
            [this] { return objections::toBandStack(m_bandStack); },
            [this] {
                return std::vector<BackupFile>{{"bandstack", bandStackFileText(m_bandStack)}};
            }};
}

BackupReading BackupReadings::keyerReading() {
    return {"keyer",
            ActiveOperation::KeyerRead,
            [this] { m_keyerReader.read(); },
            [this] { m_keyerReader.stop(); },
            &m_keyerReader.ended,
            [this] { return objections::toKeyerTexts(m_keyerReader); },
            [this] {
                return std::vector<BackupFile>{{"keyer", keyerFileText(keyerFileRows(m_keyerReader.texts()))}};
            }};
}

}  // namespace korvex
