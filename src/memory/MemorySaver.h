#pragma once

#include <string>

#include "memory/MemoryReader.h"
#include "memory/MemoryTables.h"
#include "terminal/Terminal.h"

namespace korvex {

/// "Save Memories of  FT-2000": reads all memories, then asks for a file and writes them. The table takes over what was
/// read.
class MemorySaver {
public:
    MemorySaver(Terminal& terminal, MemoryTable& table);

    /// Nothing happens while it is going on already.
    void mnu_saveMem_Click();

    const MemoryReader& reader() const { return m_reader; }
    bool running() const { return m_reader.running(); }
    Signal<const Outcome&> ended;

private:
    Outcome save(const Outcome& reading);

    Terminal& m_terminal;
    CatLink& m_link;
    MemoryTable& m_table;
    MemoryReader m_reader;
    Connection m_read;
};

/// Tells in the receive display what a reading has not brought.
void tellRemarks(TrafficDisplay& display, const MemoryReader& reader);

}  // namespace korvex
