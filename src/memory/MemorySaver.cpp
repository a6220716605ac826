#include "memory/MemorySaver.h"

#include "memory/EmptyOverFull.h"
#include "memory/MemoryFile.h"

namespace korvex {

void tellRemarks(TrafficDisplay& display, const MemoryReader& reader) {
    for (const auto& remark : reader.remarks()) display.append("\r\n " + remark + " \r\n");
}

MemorySaver::MemorySaver(Terminal& terminal, MemoryTable& table)
    : m_terminal(terminal), m_link(terminal.link()), m_table(table), m_reader(terminal.link()) {
    m_read = m_reader.ended.connect([this](const Outcome& outcome) {
        if (outcome.isDone()) m_table = m_reader.table();
        ended.emit(outcome.isDone() ? save(outcome) : outcome);
    });
}

void MemorySaver::mnu_saveMem_Click() {
    if (!running()) m_reader.read(ActiveOperation::ReadAllToFile, "Save Memories of  FT-2000");
}

Outcome MemorySaver::save(const Outcome& reading) {
    // A radio that refuses everything has told nothing: that is no reason to give up a file with channels.
    const auto saved = m_terminal.saveFile(
        {FileDialogRequest::Mode::Save, "Save FT-2000 Memory", std::string(memoryFileFilter), "",
         std::string(memoryFileExtension)},
        m_reader.fileText(), {.pathNotFound = "Path wrong "},
        [this](const std::string& file) { return m_reader.found() > 0 || mayBeEmptied(file, m_terminal.msgBox()); });
    if (saved != Outcome::Kind::Done) return saved;
    tellRemarks(m_link.received(), m_reader);
    m_link.panels().Error = "Terminated";
    return reading;
}

}  // namespace korvex
