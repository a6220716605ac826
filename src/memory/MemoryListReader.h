#pragma once

#include "memory/MemoryList.h"
#include "memory/MemoryReader.h"
#include "memory/MemoryTables.h"
#include "platform/MsgBox.h"

namespace korvex {

/// "Read Memories of FT-2000": reads all memories into the list and closes the port at the end. The table takes over
/// what was read. Rows that the person has changed meanwhile are replaced only with leave. Of a reading that did not
/// come to its end the list takes what is certain, if the person wants it.
class MemoryListReader {
public:
    MemoryListReader(CatLink& link, MsgBox& msgBox, MemoryTable& table, MemoryList& list);

    /// Unsaved changes of the list are asked about. Nothing happens while it is going on already.
    void mnu_MemSaveFromFT2000_Click();

    const MemoryReader& reader() const { return m_reader; }
    bool running() const { return m_reader.running(); }
    Signal<> listFilled;  ///< with what the radio told
    Signal<const Outcome&> ended;

private:
    void onRead(const Outcome& reading);
    void fillList();

    CatLink& m_link;
    MsgBox& m_msgBox;
    MemoryTable& m_table;
    MemoryList& m_list;
    MemoryReader m_reader;
    Connection m_read;
};

}  // namespace korvex
