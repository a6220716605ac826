#include "bandstack/BandStackWriter.h"

#include <algorithm>
#include <optional>

#include "bandstack/QueryLedger.h"
#include "base/Lines.h"
#include "base/NumberText.h"

namespace korvex {

namespace {

constexpr int firstCellMs = 50;
constexpr int cellMs = 100;
constexpr int beforeAntennaMs = 600;
constexpr int firstLookMs = 200;
constexpr int lookMs = 400;
constexpr int antennaStepMs = 200;
constexpr int mostTries = 3;
constexpr int mostLooks = 6;  // 2200 ms: a slow radio answers in half a second
constexpr const char* antennaQuery = "AN0;";
constexpr std::size_t shortestAntennaAnswer = std::string_view("AN01;").size();  // shorter is an adapter's echo
constexpr const char* toggleReceiveAntenna = "AN05;";

/// "AN010;": whether the receive antenna is on. Nothing for a radio that does not tell it ("AN01;"), nor where no
/// answer stands.
std::optional<char> receiveAntenna(const std::string& answer) {
    constexpr std::size_t digit = 4;
    if (!answer.starts_with('A') || answer.size() <= digit || !isDigit(answer[digit])) return std::nullopt;
    return answer[digit];
}

}  // namespace

void BandStackWriter::write(const BandStackCells& cells) {
    auto operation = m_link.begin({ActiveOperation::BandStackWrite,
                                   "Writing the band stack",
                                   BandStackCells::registers,
                                   {"register", "registers", true},
                                   "Write Band Stack Regiters to FT2000",
                                   800,
                                   1});
    if (!operation) return ended.emit(m_link.notBegun());
    m_operation = std::move(operation);
    m_cells = cells;
    m_cells.clearAntennaRows();
    m_written = 0;
    m_link.port().clearInBuffer();
    m_link.clearTraffic();
    m_link.lineWritten = "";
    m_operation->expect({"AN", shortestAntennaAnswer});
    m_operation->onAnswer([this](std::string_view answer) { return takeAntenna(answer); });
    m_operation->onEnd([this](const Outcome& outcome) { ended.emit(outcome); });
    began.emit();
    if (m_link.pace == Pace::Answered) return converse();
    beginRegister(1);
}

void BandStackWriter::go(Step step, int ms) {
    m_step = step;
    m_operation->after(ms, [this] { next(); });
}

void BandStackWriter::next() {
    switch (m_step) {
        case Step::Cell: return writeCell();
        case Step::AskAntenna: return askAntenna();
        case Step::AwaitAntenna: return awaitAntenna();
        case Step::Toggle: return sendToggle();
        case Step::NextRegister: return beginRegister(m_column + 1);
    }
}

void BandStackWriter::beginRegister(int column) {
    m_column = column;
    m_row = 0;
    m_tries = 0;
    if (m_column >= BandStackCells::columns) return finish();
    m_link.answers().showAs(ActiveOperation::BandStackWrite);  // what the radio says now is nobody's
    go(Step::Cell, firstCellMs);
}

/// Whether there is anything behind it.
bool BandStackWriter::skipRefusedBand() {
    if (m_cells.at(1, m_column) != "?;") return true;
    m_row = 0;
    m_column += BandStackCells::perBand;
    return m_column < BandStackCells::columns;
}

/// The radio has just refused to go to this register's band, and stands on another one still: what comes now would be
/// written over a register of that.
bool BandStackWriter::isBandRefused() const {
    const auto& refused = m_operation->noted().refused;
    return !refused.empty() && refused.back() == cellName(m_cells, 0, m_column);
}

void BandStackWriter::writeCell() {
    if (!skipRefusedBand()) return finish();
    if (m_row == 1 && isBandRefused()) return beginRegister(m_column + 1);
    const std::string command = bandStackCommand(m_cells.at(m_row, m_column)) + std::string(crLf);
    m_operation->write(cellName(m_cells, m_row, m_column), command);
    if (m_row > 0 && command != crLf) ++m_written;
    show(command);
    ++m_row;
    if (m_row <= BandStackCells::lastQueried) {
        go(Step::Cell, cellMs);
    } else {
        go(Step::AskAntenna, beforeAntennaMs);
    }
}

void BandStackWriter::show(const std::string& command) {
    const std::string& cell = m_cells.at(m_row, m_column);
    sendsCell.emit(command);
    m_operation->step(m_column, m_link.progress().value + 1);
    m_link.panels().Error = "Writing Band Stack Regiters";
    m_link.sent().set(cell);
    m_link.received().append(cell + std::string(crLf));
}

void BandStackWriter::askAntenna() {
    ++m_tries;
    m_looks = 0;
    fill(BandStackCells::antennaAnswer, "");
    m_link.lineWritten = "";
    m_link.answers().dropPending();
    m_link.port().clearInBuffer();
    m_link.answers().showAs(ActiveOperation::AntennaQuery);  // and shown as such from now on
    m_operation->send(antennaQuery);
    m_link.sent().append(antennaQuery + std::string(crLf));
    go(Step::AwaitAntenna, firstLookMs);
}

Rest BandStackWriter::takeAntenna(std::string_view answer) {
    if (m_step != Step::AwaitAntenna || !m_cells.at(BandStackCells::antennaAnswer, m_column).empty()) return Rest::GoOn;
    fill(BandStackCells::antennaAnswer, std::string(answer));
    m_link.progress().value = m_link.progress().value + 1;
    return Rest::Discard;
}

void BandStackWriter::awaitAntenna() {
    const std::string& answer = m_cells.at(BandStackCells::antennaAnswer, m_column);
    if (answer.empty() && ++m_looks < mostLooks) return go(Step::AwaitAntenna, lookMs);
    if (answer.empty() || answer == "?;") return askAntennaAgain();
    if (shouldToggle(answer)) fill(BandStackCells::antennaCommand, toggleReceiveAntenna);
    go(Step::Toggle, antennaStepMs);
}

/// Where file and radio both tell the receive antenna, and differ.
bool BandStackWriter::shouldToggle(const std::string& answer) const {
    const auto stored = receiveAntenna(m_cells.at(BandStackCells::lastQueried, m_column));
    const auto present = receiveAntenna(answer);
    return stored && present && *stored != *present;
}

void BandStackWriter::askAntennaAgain() {
    if (m_tries < mostTries) return go(Step::AskAntenna, beforeAntennaMs);
    breakOffAtAntenna(!m_cells.at(BandStackCells::antennaAnswer, m_column).empty());
}

void BandStackWriter::breakOffAtAntenna(bool refused) {
    m_operation->breakOff(
        refused ? Outcome::Kind::Refused : Outcome::Kind::NoAnswer,
        "It was asked for its antenna (AN0;) three times. The antenna of this register may differ from the file's.");
}

void BandStackWriter::sendToggle() {
    const std::string& command = m_cells.at(BandStackCells::antennaCommand, m_column);
    m_operation->send(command);
    m_link.sent().append(command + std::string(crLf));
    go(Step::NextRegister, antennaStepMs);
}

void BandStackWriter::fill(int row, const std::string& text) {
    m_cells.set(row, m_column, text);
    told.emit(row, m_column);
}

void BandStackWriter::converse() {
    m_column = 1;
    m_row = m_tries = 0;
    m_setsCell = false;
    m_step = Step::Cell;
    const auto next = [this] { return nextExchange(); };
    const auto heard = [this](const Reply& reply) { take(reply); };
    m_operation->converse({next, heard, [this](const Outcome& outcome) { onTalked(outcome); }});
}

std::optional<Exchange> BandStackWriter::nextExchange() {
    m_setsCell = false;
    switch (m_step) {
        case Step::Cell: return cellExchange();
        case Step::AskAntenna: m_step = Step::AwaitAntenna; return antennaExchange("");
        case Step::AwaitAntenna: return std::nullopt;  // it was not told
        case Step::Toggle:
            m_step = Step::NextRegister;
            m_link.sent().append(toggleReceiveAntenna + std::string(crLf));
            return antennaExchange(toggleReceiveAntenna);
        case Step::NextRegister: break;
    }
    m_step = Step::Cell;
    ++m_column;
    m_row = m_tries = 0;
    return cellExchange();
}

/// The next cell that has anything to send; behind the last of a register comes its antenna.
std::optional<Exchange> BandStackWriter::cellExchange() {
    if (m_column >= BandStackCells::columns || !skipRefusedBand()) return std::nullopt;
    std::string command;
    for (; command.empty() && m_row <= BandStackCells::lastQueried; ++m_row) {
        command = bandStackCommand(m_cells.at(m_row, m_column));
        if (command == "?;") command.clear();
        show(command + std::string(crLf));
    }
    if (command.empty()) {
        m_step = Step::AwaitAntenna;
        return antennaExchange("");
    }
    const int row = m_row - 1;
    const std::string query = m_cells.query(std::max(row, 1));
    Exchange exchange{
        cellName(m_cells, row, m_column), query, {std::string(queryHead(query)), query.size() + 1}, command};
    if (row == 0) return exchange;
    m_setsCell = true;
    exchange.confirms = [row, command](std::string_view answer) {
        return bandStackCommand(settableAnswer(row, std::string(answer))) == command;
    };
    return exchange;
}

Exchange BandStackWriter::antennaExchange(const std::string& command) const {
    const auto confirms = [this](std::string_view answer) { return !shouldToggle(std::string(answer)); };
    return {cellName(m_cells, BandStackCells::lastQueried, m_column),
            antennaQuery,
            {"AN", shortestAntennaAnswer},
            command,
            false,
            confirms};
}

void BandStackWriter::take(const Reply& reply) {
    if (m_setsCell && reply.kind == Reply::Kind::Answer) ++m_written;
    if (m_step == Step::Cell && m_row == 1 && reply.kind == Reply::Kind::Refused) m_step = Step::NextRegister;
    const bool isAntenna =
        m_step == Step::AwaitAntenna || (m_step == Step::Cell && m_row > BandStackCells::lastQueried);
    if (!isAntenna) return;
    if (reply.answer.starts_with("AN")) return takeTold(reply.answer);
    m_step = m_tries++ < mostTries ? Step::AskAntenna : Step::AwaitAntenna;
}

void BandStackWriter::takeTold(const std::string& answer) {
    fill(BandStackCells::antennaAnswer, answer);
    m_link.progress().value = m_link.progress().value + 1;
    m_step = shouldToggle(answer) ? Step::Toggle : Step::NextRegister;
    if (m_step == Step::Toggle) fill(BandStackCells::antennaCommand, toggleReceiveAntenna);
}

void BandStackWriter::onTalked(const Outcome& outcome) {
    if (m_step == Step::AwaitAntenna) return breakOffAtAntenna(outcome.isDone());
    if (outcome.wentThrough() && isAllRefused()) return endRefused();
    if (!outcome.wentThrough()) return m_operation->end(outcome);
    showTerminated();
    Outcome counted = outcome;
    counted.done = m_written;  // without the questions
    m_operation->end(counted);
}

void BandStackWriter::showTerminated() {
    m_link.panels().Error = "Terminated";
    m_link.lineWritten = "Terminated";
}

/// The radio went to none of the bands.
bool BandStackWriter::isAllRefused() const {
    const auto& refused = m_operation->noted().refused;
    const auto bands =
        std::count_if(refused.begin(), refused.end(), [](const std::string& name) { return name.ends_with(" BS"); });
    return bands == BandStackCells::registers;
}

void BandStackWriter::endRefused() {
    m_operation->breakOff(Outcome::Kind::Refused, "It refuses to go to any band. Nothing else was sent.");
}

void BandStackWriter::finish() {
    if (isAllRefused()) return endRefused();
    showTerminated();
    m_operation->finish(m_written);
}

}  // namespace korvex
