#include "memory/MemoryListReader.h"

#include "memory/KeptCaption.h"
#include "memory/MemorySaver.h"
#include "memory/UnsavedList.h"

namespace korvex {

MemoryListReader::MemoryListReader(CatLink& link, MsgBox& msgBox, MemoryTable& table, MemoryList& list)
    : m_link(link), m_msgBox(msgBox), m_table(table), m_list(list), m_reader(link) {
    m_read = m_reader.ended.connect([this](const Outcome& outcome) {
        if (outcome.isDone()) fillList();
        ended.emit(outcome);
    });
}

void MemoryListReader::mnu_MemSaveFromFT2000_Click() {
    if (running()) return;
    if (m_link.PortOpen() && !mayLoseEdits(m_list, m_msgBox)) {
        return ended.emit(Outcome::Kind::Cancelled);
    }
    m_reader.read(ActiveOperation::ReadAllToList, keptCaption(m_link.progress(), "Read Memories of FT-2000"));
}

void MemoryListReader::fillList() {
    m_table = m_reader.table();
    m_link.closePort();
    m_list.fillListFromMemoryTable(m_table);
    listFilled.emit();
    tellRemarks(m_link.received(), m_reader);
}

}  // namespace korvex
