#include "bandstack/BandStackReader.h"

#include "base/Lines.h"
#include "base/NumberText.h"
#include "cat/Noise.h"

namespace korvex {

namespace {

constexpr int automaticGain0Row = 12;
constexpr int automaticGain1Row = 13;
constexpr int roofingFilterRow = 19;

}  // namespace

BandStackReader::BandStackReader(Terminal& terminal, Clock& clock, BandStack& stack, ActiveOperation code)
    : m_terminal(terminal),
      m_link(terminal.link()),
      m_stack(stack),
      m_clock(clock),
      m_timer1(clock.makeTimer()),
      m_code(code),
      m_patience(clock, [this] { tellSilence(); }) {
    m_timer1->setInterval(50);
    m_connections += m_timer1->tick.connect([this] { Timer1_Timer(); });
    m_connections += m_link.closed.connect([this] { onPortClosed(); });
    m_link.answers().onAnswer(m_code, [this] { return takeAnswer(); });
}

void BandStackReader::mnu_readBandStack_Click() {
    m_stack.FlexGrid1.Clear();
    m_stack.initBandStackGrid();
    if (!m_link.PortOpen()) {
        ended.emit(TransferEnd::PortClosed);
        return;
    }
    m_link.port().clearInBuffer();
    m_link.setActiveOperation(m_code);
    begin();
}

void BandStackReader::begin() {
    ++m_run;
    auto& progress = m_link.progress();
    progress.caption = "Read Band Stack Registers of  FT-2000";
    progress.maximum = 800;
    progress.value = 1;
    progress.show();
    m_stack.BandStackColumn = 1;
    readColumn();
}

void BandStackReader::readColumn() {
    m_link.setActiveOperation(m_code);
    m_timer1->setEnabled(true);
    m_patience.begin();
    m_stack.BandStackRow = 1;
    m_link.clearTraffic();
    m_link.lineWritten = "";
    m_link.send(m_stack.wireText(0, m_stack.BandStackColumn));
    Timer1_Timer();
}

void BandStackReader::stop() {
    m_timer1->setEnabled(false);
    m_strange.reset();
    m_patience.end();
}

void BandStackReader::Timer1_Timer() {
    if (!m_timer1->Enabled()) return;
    if (m_link.PortOpen() && m_link.activeOperation() != m_code) return giveWay();
    if (m_phase.isSet()) {
        if (!m_link.PortOpen()) {
            stop();
            return;
        }
        // The next register's first query is this call's then.
        if (m_strange && store(std::string(*m_strange)) == Rest::Discard) return;
        if (m_ledger.due(place(), m_clock.now())) sendQuery();
    }
    m_phase.invert();
}

void BandStackReader::sendQuery() {
    const std::string query = m_stack.wireText(m_stack.BandStackRow, 0);
    m_link.send(query);
    m_ledger.sent(place(), query, m_clock.now());
    m_link.sent().append(query);
    m_link.sent().append(crLf);
    m_link.panels().Error = "Reading Band Stack ";
}

/// The steps that end it are taken at once: a port that is opened again quickly must not be asked by a reading that is
/// over.
void BandStackReader::onPortClosed() {
    m_ledger.clear();
    if (!running()) return;
    while (running()) Timer1_Timer();
    ended.emit(TransferEnd::PortClosed);
}

/// Another operation has taken over the answers: without them the same query would go out for ever.
void BandStackReader::giveWay() {
    stop();
    m_link.leaveProgress();
    ended.emit(TransferEnd::NoAnswer);
}

/// The answer to a query that the radio had not answered in time: its row has been taken by something else.
void BandStackReader::takeLate(const QueryLedger::Place& owner, const std::string& answer) {
    if (owner.run != m_run || m_stack.answersItsQuery(owner.row, owner.column)) return;
    m_stack.setWireText(owner.row, owner.column, answer);
    normalise(owner.column);
}

Rest BandStackReader::takeAnswer() {
    if (!m_timer1->Enabled()) return Rest::GoOn;
    const std::string query = m_stack.wireText(m_stack.BandStackRow, 0);
    const std::string answer = fromLastHead(queryHead(query), m_link.answers().takeAnswer());
    const auto owner = m_ledger.ownerOf(answer, place(), query, m_clock.now());
    if (owner != place()) {
        if (owner) takeLate(*owner, answer);
        return Rest::GoOn;
    }
    if (answer == "?;" || answersQuery(query, answer)) return store(answer);
    if (!m_strange) m_strange = answer;  // news, maybe; the answer itself may stand behind
    return Rest::GoOn;
}

Rest BandStackReader::store(const std::string& answer) {
    m_strange.reset();
    m_stack.setWireText(m_stack.BandStackRow, m_stack.BandStackColumn, answer);
    m_patience.begin();
    m_link.progress().value = m_link.progress().value + 1;
    ++m_stack.BandStackRow;
    if (m_stack.BandStackRow <= BandStack::lastQueried) return Rest::GoOn;
    stop();
    normalise(m_stack.BandStackColumn);
    m_link.setActiveOperation(ActiveOperation::Idle);
    nextReadColumn();
    return Rest::Discard;
}

/// In automatic the radio tells what it has chosen by itself, in digits that it does not take back.
void BandStackReader::normalise(int column) {
    normalise(automaticGain0Row, column, '4', "GT04;");
    normalise(automaticGain1Row, column, '4', "GT14;");
    normalise(roofingFilterRow, column, '3', "RF00;");
}

void BandStackReader::normalise(int row, int column, char highest, const char* replacement) {
    const std::string answer = m_stack.wireText(row, column);
    if (answer.size() < 4 || !isDigit(answer[3]) || answer[3] <= highest) return;
    m_stack.setWireText(row, column, replacement);
}

void BandStackReader::nextReadColumn() {
    if (!m_link.PortOpen()) return;
    ++m_stack.BandStackColumn;
    if (m_stack.BandStackColumn == BandStack::pastLastColumn) {
        finish();
    } else {
        readColumn();
    }
}

void BandStackReader::finish() {
    m_link.setActiveOperation(ActiveOperation::Idle);
    m_link.clearTraffic();
    m_link.lineWritten = "";
    m_stack.BandStackRow = 1;
    m_stack.BandStackColumn = 1;
    auto& progress = m_link.progress();
    progress.caption = "";
    progress.hide();
    progress.value = 1;
    const TransferEnd end = saveBandStackFile ? saveBandStackFile() : TransferEnd::Done;
    tellStrangeAnswers();
    ended.emit(end);
}

void BandStackReader::tellSilence() {
    if (m_code != ActiveOperation::BandStackRead) return;  // a backup does not wait for ever
    m_link.received().append(
        "\r\n Attention: the radio has not answered for 5 seconds and is asked again and again. \r\n"
        " Closing the port ends the reading. \r\n");
}

/// The file is what the radio said, but the owner must know when that is not what was asked for.
void BandStackReader::tellStrangeAnswers() {
    constexpr int all = BandStack::lastQueried * (BandStack::columns - 1);
    int fitting = 0;
    int refused = 0;
    for (int column = 1; column < BandStack::columns; ++column) {
        for (int row = 1; row <= BandStack::lastQueried; ++row) {
            fitting += m_stack.answersItsQuery(row, column) ? 1 : 0;
            refused += m_stack.wireText(row, column) == "?;" ? 1 : 0;
        }
    }
    const std::string ofAll = " of " + std::to_string(all);
    std::string text;
    if (fitting < all) {
        text = " Attention: only " + std::to_string(fitting) + ofAll +
               " answers belong to their question. \r\n Please read the band stack again. \r\n";
    }
    if (refused > 0) text += " Attention: the radio refused " + std::to_string(refused) + ofAll + " questions. \r\n";
    if (!text.empty()) m_link.received().set(text);
}

}  // namespace korvex
