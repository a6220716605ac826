#include "menu/ManagerWriter.h"

#include "base/CodePage.h"
#include "base/Lines.h"

namespace korvex {

ManagerWriter::ManagerWriter(Terminal& terminal, Clock& clock, const MenuCommandTable& table)
    : m_terminal(terminal), m_link(terminal.link()), m_table(table), m_timer1(clock.makeTimer()) {
    m_timer1->setInterval(50);
    m_connections += m_timer1->tick.connect([this] { Timer1_Timer(); });
    m_connections += m_link.closed.connect([this] {
        if (running()) end(TransferEnd::PortClosed);
    });
}

void ManagerWriter::start() {
    m_link.panels().Error = "";
    m_link.setActiveOperation(ActiveOperation::MenuWrite);
    m_link.clearTraffic();
    if (!m_link.PortOpen()) {
        ended.emit(TransferEnd::PortClosed);
        return;
    }
    m_link.progress().caption = "Restore Menu Settings to FT-2000";
    m_link.progress().maximum = 155;
    m_link.progress().value = 1;
    m_link.progress().show();
    m_writeIndex = 1;
    m_timer1->setEnabled(true);
}

void ManagerWriter::Timer1_Timer() {
    if (m_link.activeOperation() != ActiveOperation::MenuWrite) {
        // Another operation was started meanwhile: the panels are its own now.
        m_link.leaveProgress();
        return end(TransferEnd::NoAnswer);
    }
    if (m_phase.isSet()) {
        if (m_writeIndex <= menuItemCount) {
            sendNext();
        } else if (m_link.port().OutBufferCount() == 0) {
            finish();  // closing drops what has not left yet, so it waits for that
        }
    }
    m_phase.invert();
}

void ManagerWriter::sendNext() {
    const std::string& line = m_table.lineToWrite(m_writeIndex);
    m_link.send(line + std::string(crLf));
    m_link.panels().Error = "Writing Menu " + utf8FromWire(line.size() > 2 ? line.substr(2, 3) : std::string());
    m_link.sent().append(line + std::string(crLf));
    m_link.received().append(line + "  ");
    m_link.progress().value = m_link.progress().value + 1;
    ++m_writeIndex;
}

void ManagerWriter::finish() {
    m_timer1->setEnabled(false);
    m_link.panels().Error = "Terminated";
    m_link.lineWritten = "Terminated";
    m_link.received().append(crLf);
    m_link.setActiveOperation(ActiveOperation::Idle);
    m_link.closePort();
    ended.emit(TransferEnd::Done);
}

void ManagerWriter::end(TransferEnd how) {
    m_timer1->setEnabled(false);
    ended.emit(how);
}

}  // namespace korvex
