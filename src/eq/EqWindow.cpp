#include "eq/EqWindow.h"

#include <utility>

#include "cat/PortConfiguration.h"
#include "eq/EqPreset.h"

namespace korvex {

namespace {

constexpr int closingInterval = 250;

std::string setName(bool processorOn) {
    return processorOn ? "processor ON" : "processor OFF";
}

}  // namespace

EqWindow::EqWindow(SerialPorts& ports, Clock& clock, const OwnersDesk& desk)
    : m_msgBox(desk.msgBox),
      m_port(ports),
      m_exchange(m_port, clock),
      m_writer(m_exchange, clock),
      m_presets(desk, keys::eqPresetPath),
      m_timer3(clock.makeTimer()) {
    m_timer3->setInterval(closingInterval);
    m_connections += m_timer3->tick.connect([this] { Timer3_Timer(); });
    m_connections += m_port.OnComm.connect([this](CommEvent event) {
        if (event == CommEvent::Receive) m_exchange.onReceive(m_port.Input());
    });
    m_connections += m_exchange.readingEnded.connect([this] { onReadingEnded(); });
    m_connections += m_exchange.switchRefused.connect([this] {
        m_presetWaiting.reset();  // what the owner wanted it for has not come about
        errorPanel = "The radio did not switch the processor";
    });
    m_connections += m_exchange.notSent.connect(
        [this] { errorPanel = "Nothing is sent: this radio's menu has no equalizer at 125 to 142"; });
    m_connections += m_port.lost.connect([this](const RuntimeError& error) { onLost(error); });
    m_connections += m_exchange.settled.changed.connect([this](bool) { showWhatCanBeDone(); });
    m_connections += m_exchange.other().ended.connect([this] { onOtherEnded(); });
    m_connections += m_writer.written.connect([this] { showWhatCanBeDone(); });
}

void EqWindow::Form_Load(const SettingsStore& settings) {
    if (auto failure = applyStoredPort(settings, m_port)) m_msgBox.exclamation(failure->text);
}

bool EqWindow::mayOpen() {
    const std::string why = whyNotThisRadio(m_port.deviceText());
    if (!why.empty()) m_msgBox.exclamation(why);
    return why.empty() && mayTakePort();
}

void EqWindow::toggleEqPort() {
    if (!m_port.PortOpen() && !mayOpen()) return;
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
    m_writer.stop();
    m_exchange.other().stop();
    m_written.reset();
    connected = open;
    if (open) {
        m_exchange.clearReceived();
        errorPanel = "";
        settingsPanel = "Settings: Port " + std::to_string(m_port.CommPort()) + ", " + m_port.Settings();
        m_exchange.startReading();
        m_exchange.askProcessor();
    } else {
        settingsPanel = "Settings: ";
        errorPanel = "";
    }
    portHint = open ? "click to close" : "click to open";
    showWhatCanBeDone();
}

void EqWindow::showWhatCanBeDone() {
    canWrite = connected && m_exchange.settled && !m_writer.writing();
}

/// Sliders that the radio has not set stand where they stood; the owner must know.
void EqWindow::onReadingEnded() {
    const int answered = m_exchange.answered();
    if (!m_port.PortOpen()) return;
    tellWritten(m_exchange.processorOn, m_exchange.shownValues());
    if (!m_exchange.other().values.get()) m_exchange.other().read(!m_exchange.processorOn);
    if (answered == static_cast<int>(eqItemCount)) return usePreset();
    errorPanel = "Only " + std::to_string(answered) + " of " + std::to_string(eqItemCount) + " values were read";
}

void EqWindow::onOtherEnded() {
    tellWritten(!m_exchange.processorOn, m_exchange.other().values);
}

/// The radio has the last word on what was written.
void EqWindow::tellWritten(bool processorOn, const std::optional<EqValues>& now) {
    if (!m_written || m_written->processorOn != processorOn) return;
    const auto written = std::exchange(m_written, {})->values;
    m_exchange.statusText = "";
    if (!now) return;
    int different = 0;
    for (std::size_t item = 0; item < eqItemCount; ++item) different += written[item] != (*now)[item] ? 1 : 0;
    errorPanel = different == 0 ? "Written" : std::to_string(different) + " of 9 values did not take";
}

void EqWindow::write(const EqValues& values, bool processorOn) {
    errorPanel = "";
    m_written = Written{values, processorOn};
    m_exchange.other().stop();
    m_exchange.statusText = " Writing EQ Settings to FT-2000";
    m_writer.write(values, processorOn);
    showWhatCanBeDone();
}

void EqWindow::copySet(bool processorOn) {
    if (!canWrite) return;
    const auto values =
        processorOn == m_exchange.processorOn ? m_exchange.shownValues() : m_exchange.other().values.get();
    if (!values) {
        errorPanel = "The set for " + setName(processorOn) + " has not been read";
        return;
    }
    const bool goOn =
        m_msgBox.confirm("The nine settings for " + setName(!processorOn) + " are replaced in the radio by those for " +
                         setName(processorOn) + ":\n" + eq::inWords(*values) + "\nGo on?");
    if (goOn && canWrite) write(*values, !processorOn);
}

void EqWindow::mnu_ReadAgain_Click() {
    if (!m_port.PortOpen()) return;
    m_writer.stop();
    m_written.reset();
    errorPanel = "";
    m_exchange.other().values = std::nullopt;
    m_exchange.startReading();
    m_exchange.askProcessor();
}

void EqWindow::mnu_SavePreset_Click() {
    const auto values = m_exchange.shownValues();
    if (!values) return;
    static_cast<void>(m_presets.write({"Save Equalizer Preset", "eqp"}, eqPresetText(*values),
                                      [this](const RuntimeError& error) { m_presets.tell(error); }));
}

void EqWindow::mnu_LoadPreset_Click() {
    m_presetWaiting.reset();
    const auto end = m_presets.read({"Load Equalizer Preset", "eqp"}, [this](const std::string& content) -> Failure {
        auto read = parseEqPreset(content);
        if (!read) return read.error();
        m_presetWaiting = *read;
        return {};
    });
    if (end.failure) m_presets.tell(*end.failure);
    usePreset();
}

void EqWindow::usePreset() {
    if (!m_presetWaiting) return;
    if (!canWrite) {
        errorPanel = connected ? "The preset waits for the reading" : "Open the port to use the preset";
        return;
    }
    const auto values = *std::exchange(m_presetWaiting, {});
    const bool goOn =
        m_msgBox.confirm("The nine settings for " + setName(m_exchange.processorOn) +
                         " are replaced in the radio by those in the file:\n" + eq::inWords(values) + "\nGo on?");
    if (goOn && canWrite) write(values, m_exchange.processorOn);
}

void EqWindow::onLost(const RuntimeError& error) {
    showPortState();
    m_msgBox.exclamation(error.text);
}

void EqWindow::Command1_Click(int index) {
    errorPanel = "";
    if (!mayOpen()) return;
    m_writer.stop();
    m_written.reset();
    if (auto failure = m_exchange.switchProcessor(index == 0)) {
        m_presetWaiting.reset();
        showPortState();
        m_msgBox.exclamation(failure->text);
    }
}

void EqWindow::closeBox() {
    m_presetWaiting.reset();
    closePort();
    storePlace.emit();
    showTerminal.emit();
    hide.emit();
}

void EqWindow::mnu_EXit_Click() {
    m_presetWaiting.reset();
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
