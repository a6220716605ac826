#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cat/CatLink.h"
#include "cat/PhaseFlag.h"
#include "memory/MemoryRecord.h"
#include "memory/MemoryTables.h"
#include "platform/OwnersFiles.h"

namespace korvex {

/// "Restore Memories to FT2000": writes a memory file back into the radio, one stored string every 100 ms as a write
/// command with CR LF behind it, without waiting for anything; the radio says nothing to a channel that it takes.
class MemoryRestorer {
public:
    MemoryRestorer(CatLink& link, OwnersFiles& files, MemoryTable& table);

    /// Asks for the file first; one that is no memory file, or that holds no channel, is told and nothing is sent. With
    /// the port closed the file is only loaded into the table.
    void mnu_restMem_Click();
    /// The lines of a memory file, at least one, without asking for it.
    void write(std::vector<std::string> lines);

    bool running() const { return m_operation && m_operation->running() && !m_operation->finished(); }
    Signal<const Outcome&> ended;
    /// A writing has come to its end: for each row of the list that it was to write, unless the radio refused it, what
    /// the radio holds now; nothing where that is not certain.
    Signal<const std::map<int, std::optional<MemoryRecord>>&> wrote;

private:
    void writeNext();
    void show(const std::string& line);
    void converse();
    void finish();
    void tellWhatTheRadioHas(const Outcome& outcome);

    CatLink& m_link;
    OwnersFiles& m_files;
    MemoryTable& m_table;
    PhaseFlag m_phase;
    std::vector<std::string> m_lines;  // being written
    std::unique_ptr<Operation> m_operation;
};

}  // namespace korvex
