#include "eq/EqWindow.h"

#include "cat/PortConfiguration.h"

namespace korvex {

namespace {

constexpr int closingInterval = 250;

}  // namespace

EqWindow::EqWindow(SerialPorts& ports, Clock& clock, MsgBox& msgBox)
    : m_msgBox(msgBox), m_port(ports), m_exchange(m_port, clock), m_timer3(clock.makeTimer()) {
    m_timer3->setInterval(closingInterval);
    m_connections += m_timer3->tick.connect([this] { Timer3_Timer(); });
    m_connections += m_port.OnComm.connect([this](CommEvent event) {
        if (event == CommEvent::Receive) m_exchange.onReceive(m_port.Input());
    });
    m_connections += m_exchange.readingEnded.connect([this] { onReadingEnded(); });
    m_connections +=
        m_exchange.switchRefused.connect([this] { errorPanel = "The radio did not switch the processor"; });
    m_connections += m_port.lost.connect([this](const RuntimeError& error) { onLost(error); });
}

void EqWindow::Form_Load(const SettingsStore& settings) {
    if (auto failure = applyStoredPort(settings, m_port)) m_msgBox.exclamation(failure->text);
}

void EqWindow::toggleEqPort() {
    if (!m_port.PortOpen() && !mayTakePort()) return;
    const auto failure = m_port.PortOpen() ? m_port.setPortOpen(false) : m_exchange.openPort();
    if (failure) m_msgBox.exclamation(failure->text);
    showPortState();
}

void EqWindow::closePort() {
    if (!m_port.PortOpen()) return;
    static_cast<void>(m_port.setPortOpen(false));  // closing does not fail
    showPortState();
}

void EqWindow::showPortState() {
    const bool open = m_port.PortOpen();
    m_exchange.statusText = "";
    connected = open;
    if (open) {
        m_exchange.clearReceived();
        errorPanel = "";
        settingsPanel = "Settings: Port " + std::to_string(m_port.CommPort()) + ", " + m_port.Settings();
        m_exchange.startReading();
    } else {
        settingsPanel = "Settings: ";
        errorPanel = "";
    }
    portHint = open ? "click to close" : "click to open";
}

/// Sliders that the radio has not set stand where they stood; the owner must know.
void EqWindow::onReadingEnded() {
    const int answered = m_exchange.answered();
    if (!m_port.PortOpen() || answered == static_cast<int>(eqItemCount)) return;
    errorPanel = "Only " + std::to_string(answered) + " of " + std::to_string(eqItemCount) + " values were read";
}

void EqWindow::onLost(const RuntimeError& error) {
    showPortState();
    m_msgBox.exclamation(error.text);
}

void EqWindow::Command1_Click(int index) {
    errorPanel = "";
    if (!mayTakePort()) return;
    if (auto failure = m_exchange.switchProcessor(index == 0)) {
        showPortState();
        m_msgBox.exclamation(failure->text);
    }
}

void EqWindow::closeBox() {
    closePort();
    storePlace.emit();
    showTerminal.emit();
    hide.emit();
}

void EqWindow::mnu_EXit_Click() {
    closePort();
    storePlace.emit();
    m_timer3->setEnabled(true);
}

void EqWindow::Timer3_Timer() {
    if (m_timer3Toggle.isSet()) {
        closePort();  // it may have been opened again meanwhile
        showTerminal.emit();
        hide.emit();
        m_timer3->setEnabled(false);
        buttonBackToNormal.emit();
    }
    m_timer3Toggle.invert();
}

}  // namespace korvex
