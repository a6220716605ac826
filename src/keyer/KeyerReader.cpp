#include "keyer/KeyerReader.h"

#include <algorithm>

#include "base/Lines.h"

namespace korvex {

namespace {

constexpr int intervalMs = 200;
constexpr std::size_t headLength = 3;  // "KM1" in front of the text

}  // namespace

KeyerReader::KeyerReader(Terminal& terminal, Clock& clock, KeyerTable& table)
    : m_terminal(terminal), m_link(terminal.link()), m_table(table), m_timer(clock.makeTimer()) {
    m_timer->setInterval(intervalMs);
    m_connections += m_timer->tick.connect([this] { onTimer(); });
    m_connections += m_link.closed.connect([this] {
        if (running()) finish(TransferEnd::PortClosed);
    });
    m_link.answers().onAnswer(ActiveOperation::KeyerRead, [this] { return takeKeyerAnswer(); });
}

void KeyerReader::readKeyer() {
    m_link.setActiveOperation(ActiveOperation::KeyerRead);
    m_link.clearTraffic();
    m_terminal.Text2 = "";
    auto& progress = m_link.progress();
    progress.caption = "Read Keyer Memory of FT-2000";
    progress.maximum = 10;
    progress.value = 1;
    progress.show();
    m_table.clearTexts();
    m_table.keyerRow = 0;
    m_answered.fill(false);
    m_timer->setEnabled(true);
}

void KeyerReader::stop() {
    m_timer->setEnabled(false);
}

int KeyerReader::answered() const {
    return static_cast<int>(std::count(m_answered.begin(), m_answered.end(), true));
}

void KeyerReader::onTimer() {
    const bool works = m_phase.isSet();
    m_phase.invert();
    if (!works) return;
    if (m_link.PortOpen()) {
        queryNext();
    } else {
        finish(TransferEnd::PortClosed);
    }
}

void KeyerReader::queryNext() {
    m_link.setActiveOperation(ActiveOperation::KeyerRead);
    ++m_table.keyerRow;
    if (m_table.keyerRow == KeyerTable::rows) {
        finish(answered() == KeyerTable::memories ? TransferEnd::Done : TransferEnd::NoAnswer);
    } else {
        m_link.send(m_table.wireText(m_table.keyerRow, KeyerTable::labelColumn));
    }
}

void KeyerReader::finish(TransferEnd end) {
    stop();
    m_link.progress().value = 0;
    m_link.progress().hide();
    m_link.setActiveOperation(ActiveOperation::Idle);
    ended.emit(end);
}

Rest KeyerReader::takeKeyerAnswer() {
    m_link.received().append(crLf);
    const std::string answer = m_link.answers().takeAnswer();
    const int row = m_table.keyerRow;
    // Before the first query nothing of what comes is an answer.
    if (!running() || row < 1 || row >= KeyerTable::rows) return Rest::Discard;
    const bool hasText = answer.size() > headLength;
    m_table.setText(row, hasText ? answer.substr(headLength, answer.size() - headLength - 1) : "");
    // What comes behind the right answer stands in its place.
    m_answered.at(static_cast<std::size_t>(row)) =
        answer.starts_with(KeyerTable::readCommand(row).substr(0, headLength));
    m_link.progress().value = m_link.progress().value + 1;
    return Rest::Discard;
}

}  // namespace korvex
