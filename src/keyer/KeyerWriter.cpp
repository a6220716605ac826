#include "keyer/KeyerWriter.h"

#include "base/Lines.h"

namespace korvex {

namespace {

constexpr int intervalMs = 200;
constexpr std::size_t headLength = 3;  // "KM1" of the row's label

}  // namespace

KeyerWriter::KeyerWriter(Terminal& terminal, Clock& clock, KeyerTable& table)
    : m_terminal(terminal), m_link(terminal.link()), m_table(table), m_timer(clock.makeTimer()) {
    m_timer->setInterval(intervalMs);
    m_connections += m_timer->tick.connect([this] { onTimer(); });
    m_connections += m_link.closed.connect([this] {
        if (running()) finish(TransferEnd::PortClosed);
    });
}

void KeyerWriter::writeKeyer() {
    m_link.setActiveOperation(ActiveOperation::KeyerWrite);
    m_link.clearTraffic();
    m_terminal.Text2 = "";
    auto& progress = m_link.progress();
    progress.caption = "Write KeyerMemory in to FT-2000";
    progress.maximum = 10;
    progress.value = 1;
    progress.show();
    m_table.keyerRow = 0;
    m_timer->setEnabled(true);
}

void KeyerWriter::stop() {
    m_timer->setEnabled(false);
}

void KeyerWriter::onTimer() {
    const bool works = m_phase.isSet();
    m_phase.invert();
    if (!works) return;
    if (m_link.PortOpen()) {
        writeNext();
    } else {
        finish(TransferEnd::PortClosed);
    }
}

void KeyerWriter::writeNext() {
    m_link.setActiveOperation(ActiveOperation::KeyerWrite);
    ++m_table.keyerRow;
    if (m_table.keyerRow == KeyerTable::rows) {
        finish(TransferEnd::Done);
        return;
    }
    const std::string command = m_table.wireText(m_table.keyerRow, KeyerTable::labelColumn).substr(0, headLength) +
                                m_table.wireText(m_table.keyerRow, KeyerTable::textColumn) + ";";
    m_link.send(command);
    m_link.sent().append(command);
    m_link.sent().append(crLf);
    m_link.progress().value = m_link.progress().value + 1;
}

void KeyerWriter::finish(TransferEnd end) {
    stop();
    m_link.progress().value = 0;
    m_link.progress().hide();
    m_link.setActiveOperation(ActiveOperation::Idle);
    ended.emit(end);
}

}  // namespace korvex
