#include "menu/ItemExchange.h"

#include "base/CodePage.h"
#include "base/Lines.h"
#include "base/NumberText.h"
#include "menu/MenuCommandTable.h"
#include "menu/MenuRows.h"

namespace korvex {

ItemExchange::ItemExchange(CatLink& link, Clock& clock, MsgBox& msgBox, MSFlexGrid& grid)
    : m_link(link), m_msgBox(msgBox), m_grid(grid), m_timer2(clock.makeTimer()), m_patience(clock, [this] {
          giveUp();
      }) {
    m_timer2->setInterval(250);
    m_connections += m_timer2->tick.connect([this] { ask(); });
    m_connections += m_link.closed.connect([this] { end(TransferEnd::PortClosed); });
    m_connections += Text3.changed.connect([this](const std::string&) { Text3_Change(); });
    m_link.answers().onAnswer(ActiveOperation::ManagerItemSend, [this] { return takeAnswer(); });
}

void ItemExchange::stop() {
    m_waiting = false;
    m_timer2->setEnabled(false);
    m_patience.end();
}

void ItemExchange::end(TransferEnd how) {
    const bool ran = running();
    stop();
    if (ran) ended.emit(how);
}

void ItemExchange::giveUp() {
    // A memory list that is being written has the same code.
    const bool isOurs = m_link.activeOperation() == ActiveOperation::ManagerItemSend && !m_link.progress().visible;
    if (isOurs) m_link.setActiveOperation(ActiveOperation::Idle);
    end(TransferEnd::NoAnswer);
}

/// The item of the current cell; false when nothing can be exchanged.
bool ItemExchange::choose() {
    if (!m_link.PortOpen()) {
        m_msgBox.show({"RS-232 Port not open!", "Comm Port"});
        return false;
    }
    m_row = itemRowOf(m_grid.Row());
    m_col = m_grid.Col();
    m_number = m_grid.TextMatrix(m_row, 0);
    if (!isMenuNumber(m_number)) return false;
    stop();
    return true;
}

void ItemExchange::send() {
    if (!choose()) return;
    const std::string& value = m_grid.TextMatrix(m_row, m_col);
    const auto command = menuWriteCommand(m_number, value);
    if (!command) {
        m_msgBox.exclamation("Menu item " + m_number + ": \"" + value + "\" is no value; nothing was sent.", "Send");
        return;
    }
    m_link.setActiveOperation(ActiveOperation::ManagerItemSend);
    Text7 = value;
    Text1 = utf8FromWire(*command);
    m_link.send(*command);
    Text1 = "EX" + m_number + ";";
    m_timer2->setEnabled(true);
}

void ItemExchange::read() {
    if (!choose()) return;
    m_link.setActiveOperation(ActiveOperation::ManagerItemSend);
    Text7 = m_grid.TextMatrix(m_row, m_col);
    Text1 = "EX" + m_number + ";";
    ask();
}

void ItemExchange::ask() {
    m_timer2->setEnabled(false);
    m_link.answers().clearAccumulator();  // what came before is no answer to this
    m_waiting = true;
    m_patience.begin();
    m_link.send("EX" + m_number + ";");
}

Rest ItemExchange::takeAnswer() {
    if (!m_waiting) return Rest::GoOn;  // a memory list being written has the same code
    // What came before this answer, a refusal or another item's answer, is still there in front of it.
    std::string text = m_link.answers().accumulator();
    text.erase(0, text.rfind(';', text.size() - 2) + 1);
    const auto at = text.rfind("EX" + m_number);
    constexpr std::size_t head = 5;
    // Without a value it is an adapter's echo of the question.
    if (at == std::string::npos || text.size() <= at + head + 1) return Rest::GoOn;
    m_waiting = false;
    m_patience.end();
    m_link.received().append(crLf);
    Text2 = utf8FromWire(text.substr(at + head, text.size() - at - head - 1));
    m_link.answers().clearAccumulator();
    releaseEditor.emit();
    constexpr int numbers = 49;
    const int last = parseWhole(Text3.get()).value_or(1);
    const int step = 1 + static_cast<int>(m_random() % (numbers - 1));  // never the same again
    Text3 = std::to_string(1 + (last - 1 + step) % numbers);
    compare();
    ended.emit(TransferEnd::Done);
    return Rest::GoOn;
}

void ItemExchange::Text3_Change() {
    m_grid.setTextMatrix(m_row, m_col, Text2);
    m_link.setActiveOperation(ActiveOperation::Idle);
}

void ItemExchange::compare() {
    const auto tell = [this](const std::string& text, const std::string& title) {
        m_msgBox.show({text, title, MsgIcon::Exclamation, MsgButtons::CancelTryAgainContinue});
    };
    if (Text2.get() == Text7.get()) {
        tell("  no changes  ", "Equal");
        return;
    }
    tell("  New Value  " + Text2.get() + "\r\n  Save settings in file before Exit the program ", "New Value");
    Text7 = "";
    newValue.emit();
}

}  // namespace korvex
