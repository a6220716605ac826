#include "memory/MemoryListWriter.h"

#include "base/Lines.h"
#include "base/NumberText.h"
#include "memory/MemoryRecord.h"

namespace korvex {

namespace {

constexpr std::string_view failure = "Failure Port ";

}  // namespace

std::optional<std::string> memoryListCommand(const MemoryList& list, int row) {
    MemoryRecord record = list.channelFields(row);
    if (memoryListRow(record[MemoryField::Channel]) != row) return std::nullopt;
    if (parseWhole(record[MemoryField::Frequency]).value_or(0) <= 0) return std::nullopt;
    record[MemoryField::Channel] = channelText(row);
    std::string command = memoryWriteCommand(record);
    // A field that came damaged would make some other command of it.
    if (!hasMemoryShape(command)) return std::nullopt;
    return command;
}

MemoryListWriter::MemoryListWriter(Terminal& terminal, Clock& clock, const MemoryList& list)
    : m_terminal(terminal), m_link(terminal.link()), m_list(list), m_timer8(clock.makeTimer()) {
    m_timer8->setInterval(250);
    m_connections += m_timer8->tick.connect([this] { Timer8_Timer(); });
    m_connections += m_link.closed.connect([this] { m_portLost = true; });
}

void MemoryListWriter::mnu_MemRestoreTOFT2000_Click() {
    if (!m_link.PortOpen()) return;
    m_link.setActiveOperation(ActiveOperation::WriteListToRadio);
    m_link.received().clear();
    m_link.progress().maximum = 100;
    m_link.progress().value = 0;
    m_link.progress().show();
    m_portLost = false;
    m_commands.clear();
    for (int row = 1; row <= MemoryList::rows; ++row) m_commands.push_back(memoryListCommand(m_list, row).value_or(""));
    m_timer8->setEnabled(true);
    m_listRow = 1;
}

void MemoryListWriter::Timer8_Timer() {
    if (m_portLost) return fail();
    if (m_phase.isSet()) writeNext();
    if (m_listRow > MemoryList::rows) {
        finish();
    } else {
        m_phase.invert();
    }
}

void MemoryListWriter::writeNext() {
    const std::string& command = m_commands.at(static_cast<std::size_t>(m_listRow - 1));
    if (!command.empty()) {
        const std::string sent = command + std::string(crLf);
        m_link.send(sent);
        m_link.received().append(sent);
        m_link.sent().append(sent);
    }
    m_link.panels().Error = "Writing Memory " + std::to_string(m_listRow);
    m_link.progress().value = m_listRow;
    ++m_listRow;
}

void MemoryListWriter::finish() {
    m_timer8->setEnabled(false);
    m_link.panels().Error = "Terminated";
    m_link.lineWritten = "Terminated";
    m_link.sent().append("Terminated\r\n");
    // An operation that was started meanwhile keeps its answers.
    if (m_link.activeOperation() == ActiveOperation::WriteListToRadio) m_link.setActiveOperation(ActiveOperation::Idle);
    m_link.progress().hide();
    ended.emit(TransferEnd::Done);
}

void MemoryListWriter::fail() {
    m_timer8->setEnabled(false);
    m_link.sent().append(std::string(failure) + std::string(crLf));
    m_link.panels().Error = std::string(failure);
    m_link.progress().hide();
    ended.emit(TransferEnd::PortClosed);
}

}  // namespace korvex
