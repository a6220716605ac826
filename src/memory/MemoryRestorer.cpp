#include "memory/MemoryRestorer.h"

#include "base/CodePage.h"
#include "base/Lines.h"
#include "base/NumberText.h"
#include "memory/MemoryFile.h"
#include "memory/MemoryRecord.h"
#include "platform/TextFile.h"

namespace korvex {

MemoryRestorer::MemoryRestorer(Terminal& terminal, Clock& clock, MemoryTable& table)
    : m_terminal(terminal), m_link(terminal.link()), m_table(table), m_timer8(clock.makeTimer()) {
    m_timer8->setInterval(50);
    m_connections += m_timer8->tick.connect([this] { Timer8_Timer(); });
    m_connections += m_link.closed.connect([this] { onPortClosed(); });
}

void MemoryRestorer::mnu_restMem_Click() {
    claim();
    if (loadMemoryFile()) begin();
}

void MemoryRestorer::write(const std::vector<std::string>& lines) {
    claim();
    take(lines);
    begin();
}

void MemoryRestorer::claim() {
    m_link.setActiveOperation(ActiveOperation::RestoreFromFile);
    m_link.clearTraffic();
}

void MemoryRestorer::begin() {
    if (!m_link.PortOpen()) {
        ended.emit(TransferEnd::PortClosed);
        return;
    }
    m_link.received().clear();
    m_link.progress().maximum = 100;
    m_link.progress().value = 0;
    m_link.progress().caption = "Restore Memories to FT2000";
    m_link.progress().show();
    m_writeIndex = 1;
    m_timer8->setEnabled(true);
}

bool MemoryRestorer::loadMemoryFile() {
    const auto file = m_terminal.askForFile({FileDialogRequest::Mode::Open, "Restore Memory to FT-2000",
                                             std::string(memoryFileFilter), "", std::string(memoryFileExtension)});
    if (!file) {
        m_link.panels().Error = "";
        ended.emit(TransferEnd::Cancelled);
        return false;
    }
    const auto content = textfile::read(*file);
    if (!content) {
        m_terminal.tellFileError(content.error());
        ended.emit(TransferEnd::FileFailed);
        return false;
    }
    const auto lines = parseMemoryFile(*content);
    if (!lines) {
        m_link.panels().Error = lines.error().text;
        ended.emit(TransferEnd::FileFailed);
        return false;
    }
    take(*lines);
    return true;
}

void MemoryRestorer::take(const std::vector<std::string>& lines) {
    m_lastLoaded = 0;
    for (const auto& line : lines) m_table.set(++m_lastLoaded, line);
}

void MemoryRestorer::Timer8_Timer() {
    if (m_phase.isSet() && m_writeIndex <= m_lastLoaded) writeNext();
    if (m_writeIndex > m_lastLoaded) {
        finish();
    } else {
        m_phase.invert();
    }
}

void MemoryRestorer::writeNext() {
    const std::string& line = m_table[m_writeIndex];
    m_link.lineWritten = utf8FromWire(line);
    const std::string sent = memoryWriteCommand(line) + std::string(crLf);
    m_link.send(sent);
    const std::string channel = utf8FromWire(memoryFieldIn(line, MemoryField::Channel));
    m_link.panels().Error = "Writing Memory " + channel;
    if (const auto number = parseWhole(channel)) m_link.progress().value = *number;
    m_link.sent().append(sent);
    m_link.received().append(line + std::string(crLf));
    ++m_writeIndex;
}

void MemoryRestorer::finish() {
    m_timer8->setEnabled(false);
    m_link.panels().Error = "Terminated";
    m_link.lineWritten = "Terminated";
    m_link.sent().append("Terminated\r\n");
    // An operation that was started meanwhile keeps its answers.
    if (m_link.activeOperation() == ActiveOperation::RestoreFromFile) m_link.setActiveOperation(ActiveOperation::Idle);
    m_link.progress().hide();
    ended.emit(TransferEnd::Done);
}

void MemoryRestorer::onPortClosed() {
    if (!m_timer8->Enabled()) return;
    m_timer8->setEnabled(false);
    ended.emit(TransferEnd::PortClosed);
}

}  // namespace korvex
