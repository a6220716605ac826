#pragma once

#include <memory>
#include <string>
#include <vector>

#include "cat/PhaseFlag.h"
#include "memory/MemoryTables.h"
#include "platform/Clock.h"
#include "terminal/Terminal.h"
#include "terminal/TransferEnd.h"

namespace korvex {

/// Writes a memory file back into the radio: one stored string every 100 ms as a write command with CR LF behind it,
/// without waiting for anything; the radio says nothing to a channel that it takes.
class MemoryRestorer {
public:
    MemoryRestorer(Terminal& terminal, Clock& clock, MemoryTable& table);

    /// "Restore Memories to FT2000". With the port closed the file is only loaded into the table.
    void mnu_restMem_Click();
    /// The lines of a memory file, without asking for one.
    void write(const std::vector<std::string>& lines);

    bool running() const { return m_timer8->Enabled(); }
    Signal<const Outcome&> ended;

private:
    void claim();
    bool loadMemoryFile();
    void take(const std::vector<std::string>& lines);
    void begin();
    void Timer8_Timer();
    void writeNext();
    void finish();
    void onPortClosed();

    Terminal& m_terminal;
    CatLink& m_link;
    MemoryTable& m_table;
    std::unique_ptr<Timer> m_timer8;
    PhaseFlag m_phase;
    int m_writeIndex = 1;  // next slot to send
    int m_lastLoaded = 0;  // highest slot that the file has filled
    Connections m_connections;
};

}  // namespace korvex
