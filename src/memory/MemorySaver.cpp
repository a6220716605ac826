#include "memory/MemorySaver.h"

#include "cat/FileToRestore.h"
#include "memory/EmptyOverFull.h"

namespace korvex {

void tellRemarks(TrafficDisplay& display, const MemoryReader& reader) {
    for (const auto& remark : reader.remarks()) display.append("\r\n " + remark + " \r\n");
}

MemorySaver::MemorySaver(CatLink& link, OwnersFiles& files, MemoryTable& table)
    : m_link(link), m_files(files), m_table(table), m_reader(link) {
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
    const FileEnd saved = m_files.write(
        {"Save FT-2000 Memory", "mem"}, m_reader.fileText(),
        [this](const RuntimeError& error) { m_files.tell(error, "Path wrong "); },
        [this](const std::string& file) { return m_reader.found() > 0 || mayBeEmptied(file, m_files.msgBox()); });
    if (outcomeOf(saved) != Outcome::Kind::Done) return outcomeOf(saved);
    tellRemarks(m_link.received(), m_reader);
    m_link.panels().Error = "Terminated";
    return reading;
}

}  // namespace korvex
