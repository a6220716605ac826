#include "memory/MemoryListReader.h"

#include "cat/KeptReading.h"
#include "memory/KeptCaption.h"
#include "memory/MemorySaver.h"
#include "memory/UnsavedList.h"

namespace korvex {

namespace {

std::string replaceQuestion(const std::set<int>& rows) {
    std::string text = "While the list was being read you have changed ";
    constexpr std::size_t mostNames = 12;
    if (rows.size() > mostNames) {
        text += std::to_string(rows.size()) + " rows";
    } else {
        text += rows.size() == 1 ? "row " : "rows ";
        for (const int row : rows) text += (row == *rows.begin() ? "" : ", ") + std::to_string(row);
    }
    return text + ", for which the radio told something else.\r\nReplace your changes by what the radio told?";
}

}  // namespace

MemoryListReader::MemoryListReader(CatLink& link, MsgBox& msgBox, MemoryTable& table, MemoryList& list)
    : m_link(link), m_msgBox(msgBox), m_table(table), m_list(list), m_reader(link) {
    m_read = m_reader.ended.connect([this](const Outcome& outcome) {
        onRead(outcome);
        ended.emit(outcome);
    });
}

void MemoryListReader::mnu_MemSaveFromFT2000_Click() {
    if (running()) return;
    if (m_link.PortOpen() && !mayLoseEdits(m_list, m_msgBox)) {
        return ended.emit(Outcome::Kind::Cancelled);
    }
    m_list.noteReading();
    m_reader.read(ActiveOperation::ReadAllToList, keptCaption(m_link.progress(), "Read Memories of FT-2000"));
}

void MemoryListReader::onRead(const Outcome& reading) {
    if (reading.isDone()) {
        m_link.closePort();
        m_list.forgetRadio();
        fillList();
        return tellRemarks(m_link, m_reader);
    }
    tellBrokenOff(m_link, reading, m_reader.found());
    const PartOfReading part = {
        m_reader.found(), {"memory", "memories"}, "Put them into the list? Its other rows stay as they are."};
    if (mayKeep(m_link, m_msgBox, reading, part)) fillList();
}

void MemoryListReader::fillList() {
    m_table = m_reader.table();
    const auto changed = m_list.rowsChangedMeanwhile(m_table);
    const bool replaced = changed.empty() || m_msgBox.confirm(replaceQuestion(changed));
    m_list.fillListFromMemoryTable(m_table, replaced ? std::set<int>() : changed);
    listFilled.emit();
}

}  // namespace korvex
