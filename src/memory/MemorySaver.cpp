#include "memory/MemorySaver.h"

#include "cat/FileToRestore.h"
#include "cat/KeptReading.h"
#include "memory/EmptyOverFull.h"

namespace korvex {

namespace {

const ItemWords memories = {"memory", "memories"};

}  // namespace

void tellRemarks(CatLink& link, const MemoryReader& reader) {
    for (const auto& remark : reader.remarks()) link.received().append("\r\n " + remark + " \r\n");
}

void tellBrokenOff(CatLink& link, Outcome reading, int found) {
    reading.done = found;
    if (reading.kind != Outcome::Kind::NoAnswer) link.panels().Error = inWords(reading, memories);
}

MemorySaver::MemorySaver(CatLink& link, OwnersFiles& files, MemoryTable& table)
    : m_link(link), m_files(files), m_table(table), m_reader(link) {
    m_read = m_reader.ended.connect([this](const Outcome& outcome) { ended.emit(onRead(outcome)); });
}

void MemorySaver::mnu_saveMem_Click() {
    if (!running()) m_reader.read(ActiveOperation::ReadAllToFile, "Save Memories of  FT-2000");
}

Outcome MemorySaver::onRead(const Outcome& reading) {
    if (reading.isDone()) {
        m_table = m_reader.table();
        const auto saved = save(false);
        if (saved != Outcome::Kind::Done) return saved;
        tellRemarks(m_link, m_reader);
        m_link.panels().Error = "Terminated";
        return reading;
    }
    tellBrokenOff(m_link, reading, m_reader.found());
    if (!mayKeep(m_link, m_files.msgBox(), reading, {m_reader.found(), memories, keepInFile})) return reading;
    if (save(true) == Outcome::Kind::Done) {
        m_link.received().append("\r\n Attention: the file holds only what was read: " +
                                 std::to_string(m_reader.found()) + " memories. \r\n");
    }
    return reading;
}

Outcome::Kind MemorySaver::save(bool incomplete) {
    // A radio that refuses everything has told nothing: that is no reason to give up a file with channels.
    return outcomeOf(m_files.write(
        {"Save FT-2000 Memory", "mem", incomplete}, m_reader.fileText(),
        [this](const RuntimeError& error) { m_files.tell(error, "Path wrong "); },
        [this](const std::string& file) { return m_reader.found() > 0 || mayBeEmptied(file, m_files.msgBox()); }));
}

}  // namespace korvex
