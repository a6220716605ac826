#include "keyer/KeyerReader.h"

#include <algorithm>
#include <utility>

#include "base/Lines.h"
#include "cat/Noise.h"

namespace korvex {

namespace {

constexpr int intervalMs = 200;
constexpr std::size_t headLength = 3;  // "KM1" in front of the text
constexpr int patience = 3;            // steps of 400 ms without an answer

std::string headOf(int row) {
    return KeyerTable::readCommand(row).substr(0, headLength);
}

}  // namespace

KeyerReader::KeyerReader(Terminal& terminal, Clock& clock, KeyerTable& table, ActiveOperation code)
    : m_terminal(terminal), m_link(terminal.link()), m_table(table), m_timer(clock.makeTimer()), m_code(code) {
    m_timer->setInterval(intervalMs);
    m_connections += m_timer->tick.connect([this] { onTimer(); });
    m_connections += m_link.closed.connect([this] {
        if (running()) finish(TransferEnd::PortClosed);
    });
    m_link.answers().onAnswer(m_code, [this] { return takeKeyerAnswer(); });
}

void KeyerReader::readKeyer() {
    m_link.setActiveOperation(m_code);
    m_link.clearTraffic();
    m_terminal.Text2 = "";
    auto& progress = m_link.progress();
    progress.caption = "Read Keyer Memory of FT-2000";
    progress.maximum = 10;
    progress.value = 1;
    progress.show();
    m_table.clearTexts();
    m_table.keyerRow = 0;
    m_told.fill(Told::Nothing);
    m_silentSteps = 0;
    m_timer->setEnabled(true);
}

void KeyerReader::stop() {
    m_timer->setEnabled(false);
}

int KeyerReader::count(Told what) const {
    return static_cast<int>(std::count(m_told.begin() + 1, m_told.end(), what));
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
    m_link.setActiveOperation(m_code);
    if (m_table.keyerRow == KeyerTable::memories && waitsForRest()) return;
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

/// Whether the answers that are still missing may come: not from a radio that has said nothing at all.
bool KeyerReader::waitsForRest() {
    const int untold = count(Told::Nothing);
    return untold > 0 && untold < KeyerTable::memories && ++m_silentSteps <= patience;
}

Rest KeyerReader::takeKeyerAnswer() {
    m_link.received().append(crLf);
    std::string answer = m_link.answers().takeAnswer();
    // Before the first query nothing of what comes is an answer.
    if (!running() || m_table.keyerRow < 1 || m_table.keyerRow >= KeyerTable::rows) return Rest::Discard;
    m_silentSteps = 0;
    if (!answer.starts_with("KM")) answer = fromFirstHead(headOf(m_table.keyerRow), std::move(answer));
    store(answer);
    // Behind news the answer itself may stand.
    return answer.starts_with("KM") || answer == "?;" ? Rest::Discard : Rest::GoOn;
}

void KeyerReader::store(const std::string& answer) {
    const int owner = ownerOf(answer);
    const int row = owner == 0 ? m_table.keyerRow : owner;
    if (owner == 0 && told(row) == Told::Memory) return;  // news behind the answer
    const bool hasText = answer.size() > headLength;
    m_table.setText(row, hasText ? answer.substr(headLength, answer.size() - headLength - 1) : "");
    told(row) = owner == 0 ? Told::Else : Told::Memory;
    m_link.progress().value = m_link.progress().value + 1;
}

/// The memory that an answer tells of: the one that was asked for last, or one before it that has not been told yet.
/// 0 when it names none of these; then it stands in the row that was asked for last, until the right one comes.
int KeyerReader::ownerOf(const std::string& answer) const {
    for (int row = m_table.keyerRow - 1; row > 0; --row) {
        if (told(row) != Told::Memory && answer.starts_with(headOf(row))) return row;
    }
    return answer.starts_with(headOf(m_table.keyerRow)) ? m_table.keyerRow : 0;
}

}  // namespace korvex
