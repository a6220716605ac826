#include "memory/MemoryRestorer.h"

#include <utility>

#include "base/CodePage.h"
#include "base/Lines.h"
#include "base/NumberText.h"
#include "cat/FileToRestore.h"
#include "memory/MemoryFile.h"
#include "memory/MemoryRecord.h"

namespace korvex {

namespace {

const std::string title = "Restore Memories to FT2000";
const ItemWords words = {"memory", "memories", true};

Result<std::vector<std::string>> linesToRestore(const std::string& content) {
    auto lines = parseMemoryFile(content);
    if (lines && lines->empty()) return RuntimeError{errors::TypeMismatch, "There is no memory in it"};
    return lines;
}

}  // namespace

MemoryRestorer::MemoryRestorer(CatLink& link, OwnersFiles& files, MemoryTable& table)
    : m_link(link), m_files(files), m_table(table) {}

void MemoryRestorer::mnu_restMem_Click() {
    auto chosen =
        askForLines(m_files, m_link.panels(), {{"Restore Memory to FT-2000", "mem"}, "memory", title, linesToRestore});
    if (chosen.kind == Outcome::Kind::Cancelled) m_link.panels().Error = "";
    if (chosen.kind != Outcome::Kind::Done) return ended.emit(chosen.kind);
    m_table = {};
    int slot = 0;
    for (const auto& line : chosen.lines) m_table.set(++slot, line);
    write(std::move(chosen.lines));
}

void MemoryRestorer::write(std::vector<std::string> lines) {
    const int count = static_cast<int>(lines.size());
    auto operation = m_link.begin({ActiveOperation::RestoreFromFile, "Writing the memories", count, words, title});
    if (!operation) return ended.emit(m_link.notBegun());
    m_operation = std::move(operation);
    m_lines = std::move(lines);
    m_link.clearTraffic();
    m_operation->expect({"MR"});
    m_operation->onEnd([this](const Outcome& outcome) {
        m_link.report(outcome, words);
        ended.emit(outcome);
    });
    m_operation->every(50, m_phase, [this] { writeNext(); });
}

void MemoryRestorer::writeNext() {
    const int done = m_operation->item();
    const std::string& line = m_lines.at(static_cast<std::size_t>(done));
    m_link.lineWritten = utf8FromWire(line);
    const std::string sent = memoryWriteCommand(line) + std::string(crLf);
    const std::string channel(memoryFieldIn(line, MemoryField::Channel));
    m_operation->write(channel, sent);
    m_link.panels().Error = "Writing Memory " + channel;
    m_link.sent().append(sent);
    m_link.received().append(line + std::string(crLf));
    m_operation->step(done + 1, parseWhole(channel).value_or(0));
    if (static_cast<std::size_t>(done) + 1 == m_lines.size()) finish();
}

void MemoryRestorer::finish() {
    m_phase.invert();  // the next writing begins with the half step that works
    m_link.panels().Error = "Terminated";
    m_link.lineWritten = "Terminated";
    m_link.sent().append("Terminated\r\n");
    m_operation->finish(static_cast<int>(m_lines.size()));
}

}  // namespace korvex
