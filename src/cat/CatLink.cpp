#include "cat/CatLink.h"

#include <utility>

namespace korvex {

namespace {

std::string messageFor(CommEvent event) {
    switch (event) {
        case CommEvent::Receive: return "Receive Data";
        case CommEvent::CtsChanged: return "CTS geändert";
        case CommEvent::DsrChanged: return "DSR geändert";
        case CommEvent::CarrierChanged: break;
    }
    return "CD geändert";
}

}  // namespace

CatLink::CatLink(MSComm& port, Clock& clock, MsgBox& msgBox, ProgressWindow& progress)
    : m_port(port),
      m_clock(clock),
      m_msgBox(msgBox),
      m_progress(progress),
      m_router(m_received),
      m_commTest(port, m_received, clock),
      m_connectClock(m_panels.ConnectTime, clock),
      m_timer2(clock.makeTimer()) {
    m_timer2->setInterval(2000);
    m_connections += m_timer2->tick.connect([this] { Timer2_Timer(); });
    m_router.leaveOut([this](std::string_view piece) { return isEcho(piece); });
    m_connections += m_port.OnComm.connect([this](CommEvent event) { onComm(event); });
    m_connections += m_port.lost.connect([this](const RuntimeError& error) { onLost(error); });
    m_connections += m_progress.cancelled.connect([this] { breakOff(Outcome::Kind::Cancelled); });
}

void CatLink::togglePort() {
    m_port.PortOpen() ? closing.emit() : opening.emit();
    const Failure failure = m_port.setPortOpen(!m_port.PortOpen());
    if (failure) m_msgBox.exclamation(failure->text);
    showPortState();
}

void CatLink::closePort() {
    if (m_port.PortOpen()) togglePort();
}

void CatLink::send(std::string_view wire) {
    m_echo.sent(wire);
    m_port.Output(wire);
    went.emit(wire);
}

void CatLink::showPortState() {
    const bool open = m_port.PortOpen();
    m_indicators.bandStack = open ? "RS232 open" : "RS232 closed";
    m_indicators.menuManager = open ? "RS232 open " : "RS232 closed";
    m_indicators.clickLabel = open ? "click to close" : "click to open";
    m_indicators.open = open;
    if (open) {
        showOpened();
    } else {
        showClosed();
    }
}

void CatLink::remember(KnownRadio radio) {
    m_known = std::move(radio);
    recognize();
}

/// The ports are looked through for the device's name: only where there is something to recognize.
void CatLink::recognize() {
    m_knownHere = m_known.isChecked() && PortOpen() ? knownAt(m_port.deviceText()) : KnownRadio();
}

void CatLink::noteTold(const std::string& item) {
    if (std::erase(m_knownHere.refusedItems, item) == 0) return;
    m_known = m_knownHere;
    knownChanged.emit(m_known);
}

KnownRadio CatLink::knownAt(const std::string& device) const {
    return !device.empty() && device == m_known.device ? m_known : KnownRadio();
}

void CatLink::showOpened() {
    clearTraffic();
    recognize();
    m_panels.Settings = "Settings: Port " + std::to_string(m_port.CommPort()) + ", " + m_port.Settings() + " ";
    if (m_indicators.memoryEditorVisible) m_indicators.memoryEditor = " RS232 open ";
    m_connectClock.start();
    m_echo.begin();
    m_echo.sent(CommTest::question);
    m_commTest.start();
    opened.emit();
}

void CatLink::showClosed() {
    m_indicators.memoryEditor = "RS232 closed";
    m_panels.Settings = "Settings: ";
    m_connectClock.stop();
    m_progress.hide();
    closed.emit();
    m_sent.clear();
    m_port.clearInBuffer();
    m_port.clearOutBuffer();
    m_panels.Error = "";
    // Last: what its owner has to say of it stays to be read.
    breakOff(Outcome::Kind::PortClosed);
}

void CatLink::clearTraffic() {
    m_received.clear();
    m_sent.clear();
    m_router.dropPending();
}

void CatLink::onComm(CommEvent event) {
    if (!m_port.PortOpen()) return;
    m_panels.Status = "Status: " + messageFor(event);
    m_timer2->setEnabled(true);
    const std::string wire = m_port.Input();
    came.emit(wire);
    m_router.take(wire);
}

bool CatLink::isEcho(std::string_view piece) {
    const bool wasKnown = m_echo.echoes();
    const bool isEcho = m_echo.isEcho(piece);
    if (isEcho && !wasKnown) {
        m_received.append(
            "\r\n Attention: this cable or adapter returns what is sent. \r\n That is no answer of the radio. ");
        echoFound.emit();
    }
    return isEcho;
}

void CatLink::onLost(const RuntimeError& error) {
    const std::string text = error.text;
    showPortState();
    m_msgBox.exclamation(text);
}

void CatLink::Timer2_Timer() {
    m_panels.Status = "Status: ";
    m_timer2->setEnabled(false);
}

bool CatLink::drainAndClose() {
    if (m_draining) return false;  // asked again from an event that ran while the first one waits
    m_draining = true;
    if (m_port.PortOpen()) closing.emit();
    const bool mayClose = drain();
    m_draining = false;
    // Closing drops what the user chose to ignore.
    if (mayClose) closePort();
    return mayClose;
}

bool CatLink::drain() {
    constexpr int stepMs = 20;
    constexpr std::int64_t patienceMs = 10'000;
    std::int64_t waitingSince = m_clock.now();
    while (m_port.PortOpen() && m_port.OutBufferCount() > 0) {
        m_clock.letEventsRun(stepMs);
        if (m_clock.now() - waitingSince < patienceMs || m_port.OutBufferCount() == 0) continue;
        const auto answer =
            m_msgBox.show({"Daten können nicht gesendet werden", "", MsgIcon::Question, MsgButtons::AbortRetryIgnore});
        if (answer == MsgAnswer::Abort) return false;
        if (answer == MsgAnswer::Ignore) break;
        waitingSince = m_clock.now();
    }
    return true;
}

std::unique_ptr<Operation> CatLink::begin(OperationPlan plan) {
    if (!freeLine() || !m_port.PortOpen()) return nullptr;
    const ActiveOperation code = plan.code;
    auto operation = std::make_unique<Operation>(*this, m_clock, std::move(plan));
    m_operation = operation.get();
    m_router.own(code, [this](std::string_view piece) {
        const Operation* owner = m_operation;
        const Rest rest = m_operation->takePiece(piece);
        return m_operation == owner ? rest : Rest::Discard;  // what came behind its last answer is nobody's
    });
    operation->show();
    return operation;
}

bool CatLink::freeLine() {
    if (m_operation && m_operation->finished()) m_operation->breakOff(Outcome::Kind::Done);
    if (!m_operation) return true;
    const Operation* asked = m_operation;
    const bool mayStop = m_msgBox.confirm(standing() + ". Stop it?");
    if (mayStop && m_operation == asked) breakOff(Outcome::Kind::Cancelled, For::Another);
    return mayStop && !m_operation;
}

void CatLink::breakOff(Outcome::Kind kind, For what) {
    const bool before = std::exchange(m_givesWay, m_givesWay || what == For::Another);
    if (m_operation) m_operation->breakOff(kind);
    m_givesWay = before;
}

std::string CatLink::standing() const {
    return (m_task.empty() ? "" : m_task + ": ") + m_operation->standing();
}

Outcome CatLink::notBegun() const {
    if (!m_operation) return {Outcome::Kind::PortClosed, 0, 0, {}, "The port is closed."};
    return {Outcome::Kind::Cancelled, 0, 0, {}, standing() + " goes on."};
}

void CatLink::report(const Outcome& outcome, const ItemWords& words) {
    const std::string text = inWords(outcome, words);
    if (outcome.isFlawless()) {
        m_received.append("\r\n " + text + " \r\n");
    } else {
        m_panels.Error = text;
    }
}

void CatLink::showTerminated() {
    m_panels.Error = "Terminated";
    lineWritten = "Terminated";
    m_sent.append("Terminated\r\n");
}

void CatLink::giveBack(const Operation& operation) {
    if (m_operation != &operation) return;
    m_operation = nullptr;
    m_router.release();
}

}  // namespace korvex
