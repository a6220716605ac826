#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cat/CatLink.h"
#include "cat/PhaseFlag.h"
#include "memory/MemoryList.h"

namespace korvex {

/// Writes the memory list into the radio as it stands at the start, one row every 500 ms. A row is sent when its
/// channel cell names the row and its frequency is above zero; every other row is a step without a command. Remarks
/// stay here.
class MemoryListWriter {
public:
    MemoryListWriter(CatLink& link, const MemoryList& list) : m_link(link), m_list(list) {}

    /// "Load Memory List in to FT-2000"; nothing happens while the port is closed.
    void mnu_MemRestoreTOFT2000_Click();

    bool running() const { return m_operation && m_operation->running() && !m_operation->finished(); }
    Signal<const Outcome&> ended;
    /// What the radio has taken in the writing that has ended so, by row; not what it refused or does not tell of.
    std::map<int, MemoryRecord> taken(const Outcome& outcome) const;

private:
    void writeNext();
    void show(int row);
    void converse();
    void finish();
    void onEnd(const Outcome& outcome);

    CatLink& m_link;
    const MemoryList& m_list;
    PhaseFlag m_phase;
    std::vector<std::string> m_commands;  // rows 1 to 99; empty for a row that is not sent
    std::unique_ptr<Operation> m_operation;
};

/// The command that writes a row of the list into its channel; nothing for a row that is not to be sent.
std::optional<std::string> memoryListCommand(const MemoryList& list, int row);

}  // namespace korvex
