#include "menu/ItemExchange.h"

#include "base/CodePage.h"
#include "base/Lines.h"
#include "base/NumberText.h"
#include "menu/MenuCommandTable.h"
#include "menu/MenuRows.h"

namespace korvex {

namespace {

constexpr int settleMs = 250;  // between a value and the question for it, unless the answers set the pace
constexpr int patienceMs = 5'000;

}  // namespace

/// The item of this cell; false when nothing can be exchanged.
bool ItemExchange::choose(int row, int col) {
    if (!m_link.PortOpen()) {
        m_msgBox.show({"RS-232 Port not open!", "Comm Port"});
        return false;
    }
    m_operation.reset();
    m_row = row;
    m_col = col;
    m_number = m_grid.TextMatrix(row, 0);
    return isMenuNumber(m_number);
}

bool ItemExchange::begin() {
    m_operation = m_link.begin({ActiveOperation::ManagerItemSend, "Exchanging menu item " + m_number});
    if (!m_operation) {
        ended.emit(m_link.notBegun());
        return false;
    }
    m_asked = false;
    const std::string head = "EX" + m_number;
    m_operation->expect({head, head.size() + 2});
    m_operation->onAnswer([this](std::string_view answer) { return takeAnswer(answer); });
    m_operation->onEnd([this](const Outcome& outcome) { end(outcome); });
    return true;
}

void ItemExchange::send(int row, int col) {
    if (!choose(row, col)) return;
    const std::string value = m_grid.TextMatrix(m_row, m_col);
    const auto command = menuWriteCommand(m_number, value);
    if (!command) {
        m_msgBox.exclamation("Menu item " + m_number + ": \"" + value + "\" is no value; nothing was sent.", "Send");
        return;
    }
    if (!begin()) return;
    valueCompared = value;
    commandSent = utf8FromWire(*command);
    m_operation->send(*command);
    commandSent = "EX" + m_number + ";";
    if (m_link.pace == Pace::Answered) return ask();
    m_operation->after(settleMs, [this] { ask(); });
}

void ItemExchange::read(int row, int col) {
    if (!choose(row, col) || !begin()) return;
    valueCompared = m_grid.TextMatrix(m_row, m_col);
    commandSent = "EX" + m_number + ";";
    ask();
}

void ItemExchange::ask() {
    m_link.answers().dropPending();  // what came before is no answer to this
    m_asked = true;
    m_operation->send("EX" + m_number + ";");
    m_operation->after(patienceMs, [this] { m_operation->end(Outcome::Kind::NoAnswer); });
}

/// Other items' answers, refusals and an adapter's echo are passed over.
Rest ItemExchange::takeAnswer(std::string_view answer) {
    const std::size_t head = 2 + m_number.size();
    if (!m_asked || answer.size() <= head + 1) return Rest::GoOn;
    m_link.received().append(crLf);
    valueAnswered = utf8FromWire(answer.substr(head, answer.size() - head - 1));
    m_operation->end({Outcome::Kind::Done, 1, 1, {}, {}});
    return Rest::GoOn;
}

void ItemExchange::end(const Outcome& outcome) {
    if (outcome.isDone()) {
        showAnswer();
        compare();
    }
    ended.emit(outcome);
}

/// answerNumber gets another number; whatever it was, it is never the same again.
void ItemExchange::showAnswer() {
    releaseEditor.emit();
    constexpr int numbers = 49;
    const int last = parseWhole(answerNumber.get()).value_or(1);
    const int step = 1 + static_cast<int>(m_random() % (numbers - 1));
    m_grid.setTextMatrix(m_row, m_col, valueAnswered);
    answerNumber = std::to_string(1 + (last - 1 + step) % numbers);
}

void ItemExchange::compare() {
    const auto tell = [this](const std::string& text, const std::string& title) {
        m_msgBox.show({text, title, MsgIcon::Exclamation, MsgButtons::CancelTryAgainContinue});
    };
    if (valueAnswered.get() == valueCompared.get()) {
        tell("  no changes  ", "Equal");
        return;
    }
    tell("  New Value  " + valueAnswered.get() + "\r\n  Save settings in file before Exit the program ", "New Value");
    valueCompared = "";
    newValue.emit();
}

}  // namespace korvex
