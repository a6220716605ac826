#include "eq/EqExchange.h"

namespace korvex {

namespace {

constexpr int readInterval = 200;
constexpr int finishInterval = 500;
constexpr std::size_t middleCentre = 3;
constexpr std::size_t highCentre = 6;
constexpr std::size_t longestAnswer = 9;  // EX126+05;
constexpr std::size_t menuLength = 5;     // EX126

}  // namespace

EqExchange::EqExchange(MSComm& port, Clock& clock)
    : m_port(port), m_readTimer(clock.makeTimer()), m_finishTimer(clock.makeTimer()) {
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
    if (m_port.PortOpen()) m_port.Output(m_command[item] + itemMenu(item) + ";");
}

std::string EqExchange::itemMenu(std::size_t item) const {
    return "EX" + std::to_string(firstEqMenu + m_processorOffset + static_cast<int>(item));
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
    m_answered.reset();
    m_finishTimer->setEnabled(false);  // it belongs to a reading that this one replaces
    m_readTimer->setEnabled(true);
    statusText = " Reading EQ Settings of FT-2000";
}

void EqExchange::readTick() {
    if (m_readToggle.isSet() && m_port.PortOpen()) {
        m_port.Output(itemMenu(m_readIndex) + ";");
        ++m_readIndex;
        if (m_readIndex == eqItemCount) {
            m_readTimer->setEnabled(false);
            m_finishTimer->setEnabled(true);
        }
    }
    m_readToggle.invert();
}

void EqExchange::finishTick() {
    if (m_finishToggle.isSet()) {
        m_phase = Phase::Live;
        m_finishTimer->setEnabled(false);
        statusText = "";
        readingEnded.emit();
    }
    m_finishToggle.invert();
}

void EqExchange::onReceive(std::string_view wire) {
    for (const char c : wire) take(c);
}

void EqExchange::take(char c) {
    m_receiveBuffer += c;
    if (m_receiveBuffer.size() > longestAnswer) m_receiveBuffer.clear();
    if (m_phase == Phase::Live) {
        dropLiveAnswer();
        return;
    }
    if (m_receiveBuffer.find(';') == std::string::npos) return;
    for (std::size_t item = 0; item < eqItemCount; ++item) {
        if (m_receiveBuffer.starts_with(itemMenu(item))) {
            takeAnswer(item);
            return;
        }
    }
}

void EqExchange::takeAnswer(std::size_t item) {
    const auto answer = m_receiveBuffer.substr(menuLength, m_receiveBuffer.find(';') - menuLength);
    m_receiveBuffer.clear();
    const auto read = eq::valueFromAnswer(eqItems[item], answer);
    if (read) m_answered.set(item);
    if (read && *read != value[item]) applyValue(item, *read);
}

void EqExchange::dropLiveAnswer() {
    const bool refused = m_receiveBuffer.find('?') != std::string::npos;
    const bool complete = m_receiveBuffer.starts_with("EX") && m_receiveBuffer.find(';') != std::string::npos;
    if (refused || complete) m_receiveBuffer.clear();
}

Failure EqExchange::switchProcessor(bool on) {
    m_processorOffset = on ? processorMenuOffset : 0;
    m_port.setPortOpen(false);
    composeCommands();
    if (auto failure = openPort()) return failure;
    m_port.Output(on ? "PR1;" : "PR0;");
    startReading();
    return {};
}

}  // namespace korvex
