#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cat/PhaseFlag.h"
#include "memory/MemoryList.h"
#include "platform/Clock.h"
#include "terminal/Terminal.h"
#include "terminal/TransferEnd.h"

namespace korvex {

/// Writes the memory list into the radio as it stands at the start, one row every 500 ms. A row is sent when its
/// channel cell names the row and its frequency is above zero; every other row is a step without a command. Remarks
/// stay here.
class MemoryListWriter {
public:
    MemoryListWriter(Terminal& terminal, Clock& clock, const MemoryList& list);

    /// "Load Memory List in to FT-2000"; nothing happens while the port is closed.
    void mnu_MemRestoreTOFT2000_Click();

    bool running() const { return m_timer8->Enabled(); }
    Signal<const Outcome&> ended;

private:
    void Timer8_Timer();
    void writeNext();
    void finish();
    void fail();

    Terminal& m_terminal;
    CatLink& m_link;
    const MemoryList& m_list;
    std::unique_ptr<Timer> m_timer8;
    PhaseFlag m_phase;
    std::vector<std::string> m_commands;  // rows 1 to 99; empty for a row that is not sent
    int m_listRow = 1;                    // next row
    bool m_portLost = false;              // closed since the start, even if it is open again
    Connections m_connections;
};

/// The command that writes a row of the list into its channel; nothing for a row that is not to be sent.
std::optional<std::string> memoryListCommand(const MemoryList& list, int row);

}  // namespace korvex
