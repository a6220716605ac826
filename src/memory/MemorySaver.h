#pragma once

#include <string>

#include "memory/MemoryReader.h"
#include "memory/MemoryTables.h"
#include "platform/OwnersFiles.h"

namespace korvex {

/// "Save Memories of  FT-2000": reads all memories, then asks for a file and writes them. The table takes over what was
/// read. Of a reading that did not come to its end the file holds what is certain, if the person wants it.
class MemorySaver {
public:
    MemorySaver(CatLink& link, OwnersFiles& files, MemoryTable& table);

    /// Nothing happens while it is going on already.
    void mnu_saveMem_Click();

    const MemoryReader& reader() const { return m_reader; }
    bool running() const { return m_reader.running(); }
    Signal<const Outcome&> ended;

private:
    Outcome onRead(const Outcome& reading);
    Outcome::Kind save(bool incomplete);

    CatLink& m_link;
    OwnersFiles& m_files;
    MemoryTable& m_table;
    MemoryReader m_reader;
    Connection m_read;
};

/// Tells in the receive display what a reading has not brought, and in the panel why one did not come to its end.
void tellRemarks(CatLink& link, const MemoryReader& reader);
void tellBrokenOff(CatLink& link, Outcome reading, int found);

}  // namespace korvex
