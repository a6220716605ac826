#include "menu/MenuWriter.h"

#include "base/CodePage.h"
#include "base/Lines.h"
#include "menu/MenuFile.h"
#include "platform/TextFile.h"

namespace korvex {

MenuWriter::MenuWriter(Terminal& terminal, Clock& clock, MenuCommandTable& table)
    : m_terminal(terminal), m_link(terminal.link()), m_table(table), m_timer6(clock.makeTimer()) {
    m_timer6->setInterval(50);
    m_connections += m_timer6->tick.connect([this] { Timer6_Timer(); });
    m_connections += m_link.closed.connect([this] { onPortClosed(); });
}

void MenuWriter::mnu_Restore_Click() {
    m_link.setActiveOperation(ActiveOperation::MenuWrite);
    m_link.clearTraffic();
    m_link.panels().Error = "";
    if (!loadMenuFile()) return;
    if (!m_link.PortOpen()) {
        ended.emit(TransferEnd::PortClosed);
        return;
    }
    m_link.received().clear();
    m_link.progress().caption = "Restore Menu to FT2000";
    m_link.progress().maximum = 155;
    m_link.progress().value = 0;
    m_link.progress().show();
    m_writeIndex = 1;
    m_timer6->setEnabled(true);
}

bool MenuWriter::loadMenuFile() {
    const auto file = m_terminal.askForFile({FileDialogRequest::Mode::Open, "Restore Menu to FT-2000 ",
                                             "Flat File (*.mnu)|*.mnu|All Files (*.*)|*.*", "", "txt"});
    if (!file) {
        ended.emit(TransferEnd::Cancelled);
        return false;
    }
    const auto content = textfile::read(*file);
    if (!content) {
        m_terminal.tellFileError(content.error());
        ended.emit(TransferEnd::FileFailed);
        return false;
    }
    const auto lines = menuFileLines(*content);
    if (!lines) {
        m_link.panels().Error = lines.error().text;
        ended.emit(TransferEnd::FileFailed);
        return false;
    }
    int row = 0;
    for (const auto& line : *lines) m_table.setLineToWrite(++row, line);
    return true;
}

void MenuWriter::Timer6_Timer() {
    if (m_link.activeOperation() != ActiveOperation::MenuWrite) {
        // Another operation was started meanwhile: the panels are its own now.
        m_timer6->setEnabled(false);
        m_link.leaveProgress();
        ended.emit(TransferEnd::NoAnswer);
        return;
    }
    if (m_phase.isSet()) writeNext();
    if (m_writeIndex == menuItemCount + 1) {
        finish();
    } else {
        m_phase.invert();
    }
}

void MenuWriter::writeNext() {
    const std::string& line = m_table.lineToWrite(m_writeIndex);
    m_link.lineWritten = utf8FromWire(line);
    if (!m_link.PortOpen()) return;
    m_link.send(line + std::string(crLf));
    m_link.panels().Error = "Writing Menu " + utf8FromWire(line.size() > 2 ? line.substr(2, 3) : std::string());
    m_link.sent().append(line + std::string(crLf));
    m_link.received().append(line + "  ");
    m_link.progress().value = m_writeIndex;
    ++m_writeIndex;
}

void MenuWriter::finish() {
    m_timer6->setEnabled(false);
    m_link.panels().Error = "Terminated";
    m_link.lineWritten = "Terminated";
    m_link.sent().append("Terminated\r\n");
    m_link.setActiveOperation(ActiveOperation::Idle);
    m_link.progress().hide();
    ended.emit(TransferEnd::Done);
}

void MenuWriter::onPortClosed() {
    if (!m_timer6->Enabled()) return;
    m_timer6->setEnabled(false);
    ended.emit(TransferEnd::PortClosed);
}

}  // namespace korvex
