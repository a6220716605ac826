#include "eq/EqExchange.h"

#include <algorithm>
#include <utility>

namespace korvex {

namespace {

constexpr int readInterval = 200;
constexpr int finishInterval = 500;
constexpr std::size_t middleCentre = 3;
constexpr std::size_t highCentre = 6;
constexpr std::size_t longestAnswer = 9;  // EX126+05;

}  // namespace

EqExchange::EqExchange(MSComm& port, Clock& clock)
    : m_port(port), m_other(port, clock), m_readTimer(clock.makeTimer()), m_finishTimer(clock.makeTimer()) {
    for (std::size_t item = 0; item < eqItemCount; ++item) {
        value[item] = eqItems[item].initial;
        display[item] = std::string(eqItems[item].initialDisplay);
    }
    m_readTimer->setInterval(readInterval);
    m_finishTimer->setInterval(finishInterval);
    m_connections += m_readTimer->tick.connect([this] { readTick(); });
    m_connections += m_finishTimer->tick.connect([this] { finishTick(); });
    composeCommands();
}

Failure EqExchange::openPort() {
    beforeOpen.emit();
    return m_port.setPortOpen(true);
}

void EqExchange::applyValue(std::size_t item, int newValue) {
    if (item >= eqItemCount) return;
    const EqItem& kind = eqItems[item];
    if (newValue < kind.lowest || newValue > kind.highest) return;
    m_lastChanged = item;
    if (item == middleCentre) m_midCode = eq::parameter(kind, newValue);
    if (item == highCentre) m_highCode = eq::parameter(kind, newValue);
    value[item] = newValue;
    display[item] = eq::displayText(kind, newValue);
    composeCommands();
    if (!m_port.PortOpen() || m_radioHas[item] == m_command[item]) return;
    if (isElsewhere()) return notSent.emit();
    m_radioHas[item] = m_command[item];
    m_port.Output(m_command[item] + itemMenu(item) + ";");
}

std::optional<EqValues> EqExchange::shownValues() const {
    if (answered() < static_cast<int>(eqItemCount)) return {};
    EqValues values{};
    std::copy(value.begin(), value.end(), values.begin());
    return values;
}

void EqExchange::setValue(bool setOn, std::size_t item, int newValue) {
    if (setOn == processorOn) return applyValue(item, newValue);
    if (isElsewhere()) return notSent.emit();
    m_port.Output(eq::commandAndQuery(item, newValue, setOn));
}

void EqExchange::readSet(bool setOn) {
    if (setOn == processorOn) return startReading();
    m_other.read(setOn);
}

void EqExchange::askProcessor() {
    m_asksProcessor = true;
    m_port.Output("PR;");
}

void EqExchange::composeCommands() {
    for (std::size_t item = 0; item < eqItemCount; ++item) {
        const auto text = item == middleCentre ? m_midCode
                          : item == highCentre ? m_highCode
                                               : eq::parameter(eqItems[item], value[item]);
        m_command[item] = itemMenu(item) + text + ";";
    }
}

void EqExchange::startReading() {
    m_lastChanged = 0;
    m_readIndex = 0;
    m_phase = Phase::Reading;
    m_switching = false;
    settled = false;
    m_other.stop();
    m_radioHas = {};
    m_strange = {};
    for (auto& item : known) item = false;
    m_finishTimer->setEnabled(false);  // it belongs to a reading that this one replaces
    m_readTimer->setEnabled(true);
    statusText = " Reading EQ Settings of FT-2000";
}

void EqExchange::readTick() {
    if (m_readToggle.isSet() && m_port.PortOpen()) {
        m_switching = false;
        askNext();
    }
    m_readToggle.invert();
}

void EqExchange::askNext() {
    m_port.Output(itemMenu(m_readIndex) + ";");
    ++m_readIndex;
    if (m_readIndex < eqItemCount) return;
    m_readTimer->setEnabled(false);
    m_finishTimer->setEnabled(true);
}

/// At the answered pace; the ticks go on for a radio that does not answer.
void EqExchange::goOn(std::size_t told) {
    const bool isLastAsked = told + 1 == m_readIndex;
    if (pace() != Pace::Answered || !isLastAsked || !m_port.PortOpen()) return;
    if (m_readIndex == eqItemCount) return finish();
    m_readTimer->setEnabled(false);
    m_readTimer->setEnabled(true);
    askNext();
}

void EqExchange::finishTick() {
    if (m_finishToggle.isSet()) finish();
    m_finishToggle.invert();
}

void EqExchange::finish() {
    m_phase = Phase::Live;
    m_finishTimer->setEnabled(false);
    statusText = "";
    settled = shownValues().has_value();
    readingEnded.emit();
}

void EqExchange::onReceive(std::string_view wire) {
    for (const char c : wire) take(c);
}

int EqExchange::answered() const {
    return static_cast<int>(std::count_if(known.begin(), known.end(), [](const auto& item) { return item.get(); }));
}

/// Noise without an end pushes itself out.
void EqExchange::take(char c) {
    m_receiveBuffer += c;
    if (m_receiveBuffer.size() > longestAnswer) m_receiveBuffer.erase(0, 1);
    if (c == ';') takePiece(std::exchange(m_receiveBuffer, {}));
}

void EqExchange::takePiece(std::string_view piece) {
    if (piece.ends_with("?;")) return takeRefusal();
    if (takeProcessor(piece)) return;
    const auto head = piece.rfind("EX");
    if (head != std::string_view::npos && m_other.take(piece.substr(head))) return;
    if (m_phase == Phase::Reading && head != std::string_view::npos) takeAnswer(piece.substr(head));
}

void EqExchange::takeAnswer(std::string_view answer) {
    const auto read = eq::readAnswer(answer, processorOn);
    if (!read) return noteStrange(answer);
    known[read->item] = true;
    m_strange.at(read->item) = false;
    if (read->value != value[read->item]) {
        const auto command = eq::commandFor(read->item, read->value, processorOn);
        // The radio may have it in another form: nobody asked for that to be changed.
        if (command != answer) m_radioHas[read->item] = command;
        applyValue(read->item, read->value);
    } else {
        m_radioHas[read->item] = m_command[read->item];
    }
    goOn(read->item);
}

void EqExchange::noteStrange(std::string_view answer) {
    for (std::size_t item = 0; item < eqItemCount; ++item) {
        if (answer.starts_with(itemMenu(item))) m_strange.at(item) = true;
    }
}

/// One item lower, where early firmware has it, the centres have the gains' signs. A single one may be noise.
bool EqExchange::isElsewhere() const {
    int strangeCentres = 0;
    for (std::size_t item = 0; item < eqItemCount; ++item) {
        if (eqItems[item].kind == EqItem::Kind::Centre && m_strange.at(item)) ++strangeCentres;
    }
    return strangeCentres > 1;
}

/// What comes before the first item is asked for, 200 ms later at the earliest, is for the processor's command.
void EqExchange::takeRefusal() {
    m_radioHas[m_lastChanged].clear();  // a drag tries again
    if (!m_switching) return;
    showProcessor(!processorOn);
    startReading();
    switchRefused.emit();
}

/// "PR1;". A third mode, if a radio has one, leaves the set as it is.
bool EqExchange::takeProcessor(std::string_view piece) {
    if (!m_asksProcessor || !(piece.ends_with("PR0;") || piece.ends_with("PR1;"))) return false;
    m_asksProcessor = false;
    const bool on = piece.ends_with("PR1;");
    if (on == processorOn) return true;
    showProcessor(on);
    startReading();
    return true;
}

void EqExchange::showProcessor(bool on) {
    if (on != processorOn) m_other.values = shownValues();
    processorOn = on;
    composeCommands();
}

Failure EqExchange::switchProcessor(bool on) {
    static_cast<void>(m_port.setPortOpen(false));  // closing does not fail
    if (auto failure = openPort()) return failure;
    m_asksProcessor = false;
    showProcessor(on);
    m_port.Output(on ? "PR1;" : "PR0;");
    startReading();
    m_switching = true;
    return {};
}

}  // namespace korvex
