#include "bandstack/BandStackReader.h"

#include "base/Lines.h"
#include "cat/Noise.h"

namespace korvex {

namespace {

constexpr int intervalMs = 50;  // of which every second tick works
constexpr int silenceMs = 5'000;

}  // namespace

void BandStackReader::read() {
    auto operation = m_link.begin({ActiveOperation::BandStackRead,
                                   "Reading the band stack",
                                   BandStackCells::registers,
                                   {"register", "registers"},
                                   "Read Band Stack Registers of  FT-2000",
                                   800,
                                   1});
    if (!operation) return ended.emit(m_link.notBegun());
    m_operation = std::move(operation);
    m_link.port().clearInBuffer();
    m_cells = BandStackCells();
    ++m_run;
    m_operation->onAnswer([this](std::string_view piece) { return takeAnswer(piece); });
    m_operation->onEnd([this](const Outcome& outcome) { onEnd(outcome); });
    began.emit();
    if (m_link.pace == Pace::Answered) return converse();
    readRegister(1);
}

void BandStackReader::onEnd(const Outcome& outcome) {
    if (outcome.kind == Outcome::Kind::PortClosed) m_ledger.clear();  // nothing is owed any more
    ended.emit(outcome);
}

void BandStackReader::beginRegister(int column) {
    m_column = column;
    m_row = 1;
    m_strange.reset();
    m_link.clearTraffic();
    m_link.lineWritten = "";
    m_operation->step(column, m_link.progress().value);
}

void BandStackReader::readRegister(int column) {
    beginRegister(column);
    m_operation->send(m_cells.at(0, column));
    watchSilence();
    m_operation->every(intervalMs, m_phase, [this] { askAgain(); });
    m_operation->tick();
}

void BandStackReader::watchSilence() {
    m_operation->onSilence(silenceMs, [this] { silent.emit(); });
}

void BandStackReader::askAgain() {
    // With the last row of a register the next one has begun, or the reading is over.
    if (m_strange && store(std::string(*m_strange)) == Rest::Discard) return;
    if (!m_ledger.due(place(), m_clock.now())) return;
    const std::string& query = m_cells.query(m_row);
    m_operation->send(query);
    m_ledger.sent(place(), query, m_clock.now());
    show(query);
}

void BandStackReader::show(const std::string& query) {
    m_link.sent().append(query + std::string(crLf));
    m_link.panels().Error = "Reading Band Stack ";
}

Rest BandStackReader::takeAnswer(std::string_view piece) {
    const std::string& query = m_cells.query(m_row);
    const std::string answer = fromLastHead(queryHead(query), std::string(piece));
    const auto owner = m_ledger.ownerOf(answer, place(), query, m_clock.now());
    if (owner != place()) {
        if (owner) takeLate(*owner, answer);
        return Rest::GoOn;
    }
    if (answer == "?;" || answersQuery(query, answer)) return store(answer);
    if (!m_strange) m_strange = answer;  // unasked, maybe; the answer itself may stand behind
    return Rest::GoOn;
}

/// The answer to a query that the radio had not answered in time: its row has been taken by something else.
void BandStackReader::takeLate(const QueryLedger::Place& owner, const std::string& answer) {
    if (owner.run == m_run && !m_cells.answersItsQuery(owner.row, owner.column)) keep(owner.row, owner.column, answer);
}

Rest BandStackReader::store(const std::string& answer) {
    m_strange.reset();
    take(answer);
    watchSilence();
    if (m_row <= BandStackCells::lastQueried) return Rest::GoOn;
    if (m_column < BandStackCells::registers) {
        readRegister(m_column + 1);
    } else {
        finish();
    }
    return Rest::Discard;
}

void BandStackReader::take(const std::string& answer) {
    keep(m_row, m_column, answer);
    m_link.progress().value = m_link.progress().value + 1;
    ++m_row;
}

void BandStackReader::finish() {
    m_link.clearTraffic();
    m_link.lineWritten = "";
    m_link.progress().caption = "";
    m_operation->end({Outcome::Kind::Done, m_column, m_column, {}, {}});
}

void BandStackReader::converse() {
    m_silent = false;
    beginRegister(1);
    const auto next = [this] { return nextExchange(); };
    // A refused band-select command is kept as the refusal of its first row.
    const auto heard = [this](const Reply& reply) {
        m_silent = reply.kind == Reply::Kind::None;
        if (!m_silent) take(reply.kind == Reply::Kind::Refused ? "?;" : reply.answer);
    };
    const auto done = [this](const Outcome& outcome) {
        outcome.isDone() ? finish() : m_operation->breakOff(Outcome::Kind::NoAnswer);
    };
    m_operation->converse({next, heard, done});
}

std::optional<Exchange> BandStackReader::nextExchange() {
    if (m_silent) return std::nullopt;
    if (m_row > BandStackCells::lastQueried) {
        if (m_column == BandStackCells::registers) return std::nullopt;
        beginRegister(m_column + 1);
    }
    const std::string& query = m_cells.query(m_row);
    show(query);
    return Exchange{cellName(m_cells, m_row, m_column),
                    query,
                    {std::string(queryHead(query)), query.size() + 1},
                    m_row == 1 ? m_cells.at(0, m_column) : ""};
}

void BandStackReader::keep(int row, int column, const std::string& answer) {
    m_cells.set(row, column, settableAnswer(row, answer));
    told.emit(row, column);
}

}  // namespace korvex
