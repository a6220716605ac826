#include "bandstack/BandStackWriter.h"

#include "base/CodePage.h"
#include "base/Lines.h"
#include "cat/Noise.h"
#include "cat/TransmitGuard.h"

namespace korvex {

namespace {

constexpr int columnsPerBand = 3;

std::string fifthCharacter(const std::string& answer) {
    return answer.size() < 5 ? std::string() : answer.substr(4, 1);
}

}  // namespace

std::string bandStackCommand(const std::string& cell) {
    if (cell.starts_with("AN0")) return cell.substr(0, 4) + ";";
    if (!keysTransmitter(cell)) return cell;
    return cell.starts_with("AC002") ? "AC001;" : "";
}

BandStackWriter::BandStackWriter(Terminal& terminal, Clock& clock, BandStack& stack)
    : m_terminal(terminal), m_link(terminal.link()), m_stack(stack), m_patience(clock, [this] { tellSilence(); }) {
    setUp(m_timer2, clock, 50, &BandStackWriter::Timer2_Timer);
    setUp(m_timer3, clock, 300, &BandStackWriter::Timer3_Timer);
    setUp(m_timer4, clock, 200, &BandStackWriter::Timer4_Timer);
    setUp(m_timer5, clock, 200, &BandStackWriter::Timer5_Timer);
    setUp(m_timer6, clock, 200, &BandStackWriter::Timer6_Timer);
    m_connections += m_link.closed.connect([this] { onPortClosed(); });
    m_link.answers().onAnswer(ActiveOperation::AntennaQuery, [this] { return takeAntennaAnswer(); });
}

void BandStackWriter::setUp(PhasedTimer& phased, Clock& clock, int interval, void (BandStackWriter::*handler)()) {
    phased.timer = clock.makeTimer();
    phased.timer->setInterval(interval);
    m_connections += phased.timer->tick.connect([this, handler] { (this->*handler)(); });
}

bool BandStackWriter::running() const {
    return m_timer2.Enabled() || m_timer3.Enabled() || m_timer4.Enabled() || m_timer5.Enabled() || m_timer6.Enabled();
}

void BandStackWriter::stop() {
    for (auto* phased : {&m_timer2, &m_timer3, &m_timer4, &m_timer5, &m_timer6}) phased->stop();
    m_patience.end();
}

/// The steps that end it are taken at once, or a port that is opened again quickly would find the write going on. Only
/// the question for the antenna waits for the port to come back.
void BandStackWriter::onPortClosed() {
    if (!running()) return;
    m_timer4.stop();
    m_patience.end();
    while (m_timer6.Enabled()) Timer6_Timer();
    while (m_timer5.Enabled()) Timer5_Timer();
    if (m_timer2.Enabled()) Timer2_Timer();
    if (m_stack.BandStackColumn >= BandStack::pastLastColumn) return;  // the last register was done: it ended well
    m_waitsForPort = true;
    ended.emit(TransferEnd::PortClosed);
}

void BandStackWriter::mnu_writeBandStack_Click() {
    if (!m_link.PortOpen()) {
        ended.emit(TransferEnd::PortClosed);
        return;
    }
    m_link.port().clearInBuffer();
    m_link.setActiveOperation(ActiveOperation::BandStackWrite);
    m_waitsForPort = false;
    m_stack.BandStackRow = 0;
    m_stack.BandStackColumn = 1;
    m_link.clearTraffic();
    m_link.lineWritten = "";
    auto& progress = m_link.progress();
    progress.maximum = 800;
    progress.value = 1;
    progress.caption = "Write Band Stack Regiters to FT2000";
    progress.show();
    m_timer2.start();
    Timer2_Timer();
}

void BandStackWriter::Timer2_Timer() {
    if (!m_timer2.Enabled()) return;
    if (m_timer2.phase.isSet() && m_link.PortOpen()) writeCell();
    if (m_stack.BandStackRow == BandStack::antennaAnswer) startAntennaStep();
    if (m_stack.BandStackColumn >= BandStack::pastLastColumn) {
        finish();
        return;
    }
    if (!m_link.PortOpen()) m_timer2.stop();
    m_timer2.phase.invert();
}

void BandStackWriter::writeCell() {
    skipRefusedBand();
    if (m_stack.BandStackColumn >= BandStack::pastLastColumn) return;
    const std::string cell = m_stack.current();
    const std::string staging = bandStackCommand(cell) + std::string(crLf);
    m_stack.Text3 = utf8FromWire(staging);
    m_link.send(staging);
    m_link.panels().Error = "Writing Band Stack Regiters";
    m_link.progress().value = m_link.progress().value + 1;
    m_link.sent().set(cell);
    m_link.received().append(cell + std::string(crLf));
    ++m_stack.BandStackRow;
}

void BandStackWriter::skipRefusedBand() {
    if (m_stack.wireText(1, m_stack.BandStackColumn) != "?;") return;
    m_stack.BandStackRow = 0;
    m_stack.BandStackColumn += columnsPerBand;
}

void BandStackWriter::finish() {
    m_timer2.stop();
    m_link.panels().Error = "Terminated";
    m_link.lineWritten = "Terminated";
    m_link.setActiveOperation(ActiveOperation::Idle);
    m_link.progress().hide();
    ended.emit(TransferEnd::Done);
}

void BandStackWriter::startAntennaStep() {
    m_timer2.stop();
    m_timer3.start();
}

void BandStackWriter::Timer3_Timer() {
    if (m_timer3.phase.isSet()) queryAntenna();
    m_timer3.phase.invert();
}

void BandStackWriter::queryAntenna() {
    if (m_link.testing()) return;  // the answer to the test would be taken for the antenna
    if (m_waitsForPort && m_link.PortOpen()) {
        m_waitsForPort = false;
        // Whatever has been started since the port came back is not to lose its answers to this.
        if (m_link.activeOperation() != ActiveOperation::Idle) return stop();
    }
    clearTextFields();
    m_link.port().clearInBuffer();
    m_link.setActiveOperation(ActiveOperation::AntennaQuery);
    if (!m_link.PortOpen()) return;
    // A file without the column of queries leaves this label empty.
    const std::string label = m_stack.wireText(BandStack::antennaAnswer, 0);
    const std::string query = label.empty() ? "AN0;" : label;
    m_link.send(query);
    showSent(query);
    m_timer3.stop();
    m_timer4.start();
    m_patience.begin();
    Timer4_Timer();
}

void BandStackWriter::clearTextFields() {
    m_link.lineWritten = "";
    m_link.answers().clearAccumulator();
}

void BandStackWriter::showSent(const std::string& wire) {
    m_link.sent().append(wire + std::string(crLf));
}

Rest BandStackWriter::takeAntennaAnswer() {
    // Noise, news or an adapter's echo of the query in the place of the answer would be waited out for ever.
    const std::string answer = fromLastHead("AN", m_link.answers().takeAnswer());
    const bool told = answer.starts_with('A') && answer != "AN0;";
    if (!told && answer != "?;") return Rest::GoOn;
    m_stack.setWireText(BandStack::antennaAnswer, m_stack.BandStackColumn, answer);
    m_link.progress().value = m_link.progress().value + 1;
    m_link.setActiveOperation(ActiveOperation::Idle);
    return Rest::Discard;
}

void BandStackWriter::Timer4_Timer() {
    if (!m_timer4.Enabled()) return;
    if (m_timer4.phase.isSet() &&
        m_stack.wireText(BandStack::antennaAnswer, m_stack.BandStackColumn).starts_with('A')) {
        decideAntennaCommand();
        m_timer5.start();
        m_timer4.stop();
        m_patience.end();
        Timer5_Timer();
    }
    m_timer4.phase.invert();
}

void BandStackWriter::tellSilence() {
    m_link.received().append(
        "\r\n Attention: the radio has not told its antenna for 5 seconds; the writing waits for that. \r\n"
        " Closing the port ends it. \r\n");
}

void BandStackWriter::decideAntennaCommand() {
    const int column = m_stack.BandStackColumn;
    const auto stored = fifthCharacter(m_stack.wireText(BandStack::lastQueried, column));
    const auto present = fifthCharacter(m_stack.wireText(BandStack::antennaAnswer, column));
    // The fifth character tells whether the receive antenna is on, and AN05; toggles it.
    if (stored != present) m_stack.setWireText(BandStack::antennaCommand, column, "AN05;");
}

void BandStackWriter::Timer5_Timer() {
    if (!m_timer5.Enabled()) return;
    if (m_timer5.phase.isSet()) {
        if (!m_link.PortOpen()) {
            m_timer5.stop();
            return;
        }
        const std::string command = m_stack.wireText(BandStack::antennaCommand, m_stack.BandStackColumn);
        m_link.send(command);
        showSent(command);
        m_timer5.stop();
        m_timer6.start();
        Timer6_Timer();
    }
    m_timer5.phase.invert();
}

void BandStackWriter::Timer6_Timer() {
    if (!m_timer6.Enabled()) return;
    if (m_timer6.phase.isSet()) {
        m_link.setActiveOperation(ActiveOperation::BandStackWrite);
        m_stack.BandStackRow = 0;
        ++m_stack.BandStackColumn;
        m_timer6.stop();
        m_timer2.start();
        Timer2_Timer();
    }
    m_timer6.phase.invert();
}

}  // namespace korvex
