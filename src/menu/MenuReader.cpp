#include "menu/MenuReader.h"

#include "base/Lines.h"
#include "cat/Noise.h"
#include "menu/MenuFile.h"
#include "platform/TextFile.h"

namespace korvex {

namespace {

constexpr int allSent = menuItemCount + 1;
constexpr int patience = 20;  // steps of 100 ms without an answer

}  // namespace

MenuReader::MenuReader(Terminal& terminal, Clock& clock, MenuCommandTable& table, ActiveOperation toFile)
    : m_terminal(terminal),
      m_link(terminal.link()),
      m_table(table),
      m_timer4(clock.makeTimer()),
      m_toFile(toFile),
      m_code(toFile) {
    m_timer4->setInterval(50);
    m_connections += m_timer4->tick.connect([this] { Timer4_Timer(); });
    m_connections += m_link.closed.connect([this] { onPortClosed(); });
    m_link.answers().onAnswer(toFile, [this] { return takeAnswer(); });
    if (toFile != ActiveOperation::MenuReadToFile) return;  // not the windows' reader
    m_link.answers().onAnswer(ActiveOperation::MenuReadToManager, [this] { return takeAnswer(); });
}

void MenuReader::mnu_Store_Click() {
    // Once more while it runs: answers on their way would be counted twice.
    if (running() && m_code == m_toFile && m_link.activeOperation() == m_toFile) return;
    m_code = m_toFile;
    m_link.setActiveOperation(m_code);
    m_link.panels().Error = "";
    if (!m_link.PortOpen()) return;
    m_link.progress().caption = "Save Menu of FT-2000";
    m_link.progress().value = 0;
    resetMenuReadCounters();
    begin();
}

void MenuReader::startForManager() {
    m_code = ActiveOperation::MenuReadToManager;
    m_link.progress().caption = "Read Menu Settings of FT-2000";
    m_link.progress().value = 1;
    begin();
}

void MenuReader::resetMenuReadCounters() {
    m_sendIndex = 1;
    m_answerIndex = 1;
    m_silentSteps = 0;
    m_answeredLast = false;
    m_table.clearAnswers();
}

void MenuReader::begin() {
    m_timer4->setEnabled(true);
    m_link.panels().Error = "Reading Menu";
    m_link.progress().maximum = 155;
    m_link.progress().show();
    m_link.clearTraffic();
    Timer4_Timer();
}

bool MenuReader::wasAskedFor(const std::string& answer) const {
    // The late answer to the communication test, news of a turned dial or the rest of another operation would move
    // every later answer into the wrong row.
    if (m_answerIndex >= m_sendIndex) return false;
    const bool ofItem =
        answer.starts_with("EX") && answer.size() > menuReadCommand(1).size();  // else an adapter's echo
    return ofItem || answer.find('?') != std::string::npos;
}

void MenuReader::Timer4_Timer() {
    if (m_link.activeOperation() != m_code) {
        // Another operation was started meanwhile: the panels are its own now.
        m_timer4->setEnabled(false);
        m_link.leaveProgress();
        ended.emit(TransferEnd::NoAnswer);
        return;
    }
    if (m_phase.isSet() && m_link.PortOpen()) {
        ++m_silentSteps;
        if (m_sendIndex == allSent) {
            waitForRest();
        } else {
            sendNext();
        }
    }
    m_phase.invert();
}

void MenuReader::sendNext() {
    const std::string command = menuReadCommand(m_sendIndex);
    m_link.send(command);
    m_link.sent().append(command);
    m_link.sent().append(crLf);
    m_link.progress().value = m_sendIndex;
    m_link.panels().Error = "Reading Menu " + std::to_string(m_sendIndex);
    ++m_sendIndex;
}

void MenuReader::waitForRest() {
    if (m_silentSteps < patience) return;
    if (m_answeredLast) {
        complete();
    } else {
        fail();
    }
}

void MenuReader::fail() {
    stopShowing();
    m_link.panels().Error = "Communication faild ";
    ended.emit(TransferEnd::NoAnswer);
}

void MenuReader::stopShowing() {
    stop();
    m_link.progress().hide();
}

Rest MenuReader::takeAnswer() {
    if (!m_timer4->Enabled()) return Rest::GoOn;
    const std::string answer = fromLastHead("EX", m_link.answers().takeAnswer());
    if (!wasAskedFor(answer)) return Rest::GoOn;
    m_table.setAnswer(m_answerIndex, answer);
    // The answer to the communication test may still come in between: its digits are no item.
    const bool ofItem = answer.size() > 5 && answer.starts_with("EX");
    if (m_code == ActiveOperation::MenuReadToManager && placeAnswer && ofItem) {
        placeAnswer(answer.substr(2, 3), answer.substr(5, answer.size() - 6));
    }
    ++m_answerIndex;
    m_silentSteps = 0;
    m_answeredLast = m_sendIndex == allSent;
    if (m_answerIndex <= menuItemCount) return Rest::GoOn;
    complete();
    return Rest::Discard;
}

void MenuReader::complete() {
    stopShowing();
    if (m_code == ActiveOperation::MenuReadToManager) {
        finishForManager();
    } else {
        saveMenuFile();
    }
}

void MenuReader::saveMenuFile() {
    m_link.setActiveOperation(ActiveOperation::Idle);
    if (saveFile) {
        ended.emit(saveFile());
        return;
    }
    const auto file = m_terminal.askForFile(
        {FileDialogRequest::Mode::Save, "Save FT-2000 Menu", "Flat File (*.mnu)|*.mnu|All Files (*.*)|*.*", "", "txt"});
    if (!file) {
        ended.emit(TransferEnd::Cancelled);
        return;
    }
    if (const auto failure = textfile::write(*file, menuFileText(m_table))) {
        m_terminal.tellFileError(*failure, {.pathNotFound = "Path wrong "});
        ended.emit(TransferEnd::FileFailed);
        return;
    }
    m_link.received().clear();
    if (const int inPlace = answersInPlace(m_table); inPlace != menuItemCount) {
        // The file is what the radio said, but the owner must know that it is not the whole menu.
        m_link.received().set(" Attention: only " + std::to_string(inPlace) + " of " + std::to_string(menuItemCount) +
                              " menu items were answered \r\n in time and in order. Please read the menu again. \r\n");
    }
    m_link.panels().Error = "Terminated";
    ended.emit(TransferEnd::Done);
}

void MenuReader::finishForManager() {
    m_link.closePort();
    if (readComplete) readComplete();
    ended.emit(TransferEnd::Done);
}

void MenuReader::onPortClosed() {
    if (!m_timer4->Enabled()) return;
    m_timer4->setEnabled(false);
    ended.emit(TransferEnd::PortClosed);
}

}  // namespace korvex
