#include "memory/MemoryReader.h"

#include "base/Lines.h"
#include "memory/MemoryFile.h"
#include "memory/MemoryRecord.h"
#include "memory/UnsavedList.h"
#include "platform/TextFile.h"

namespace korvex {

namespace {

constexpr int patience = 20;  // steps of 100 ms without an answer

}  // namespace

MemoryReader::MemoryReader(Terminal& terminal, Clock& clock, MemoryTable& table, MemoryList& list,
                           ActiveOperation toFile)
    : m_terminal(terminal), m_link(terminal.link()), m_table(table), m_list(list), m_toFile{toFile, {}, {}} {
    for (Reading* reading : {&m_toFile, &m_toList}) {
        reading->timer = clock.makeTimer();
        prepare(*reading);
    }
    m_link.answers().onAnswer(toFile, [this] { return takeAnswer(m_toFile); });
    if (toFile == ActiveOperation::ReadAllToFile) {  // the windows' reader
        m_link.answers().onAnswer(m_toList.code, [this] { return takeAnswer(m_toList); });
    }
    m_connections += m_link.closed.connect([this] { onPortClosed(); });
}

void MemoryReader::mnu_MemSaveFromFT2000_Click() {
    if (running()) return;
    if (m_link.PortOpen() && !mayLoseEdits(m_list, m_terminal.msgBox())) return ended.emit(TransferEnd::Cancelled);
    start(m_toList, {});
}

void MemoryReader::prepare(Reading& reading) {
    reading.timer->setInterval(50);
    m_connections += reading.timer->tick.connect([this, &reading] { tick(reading); });
}

void MemoryReader::start(Reading& reading, std::string_view caption) {
    if (running()) return;
    m_link.setActiveOperation(reading.code);
    m_link.panels().Error = "";
    if (!m_link.PortOpen()) return;
    if (!caption.empty()) m_link.progress().caption = std::string(caption);
    m_link.progress().value = 0;
    m_link.progress().maximum = 101;
    m_link.progress().show();
    reading.timer->setEnabled(true);
    m_sendIndex = m_answerIndex = m_storeIndex = 1;
    m_found = {};
    m_silentSteps = m_damaged = 0;
    m_link.clearTraffic();
    tick(reading);
}

void MemoryReader::tick(Reading& reading) {
    if (m_link.activeOperation() != reading.code) return giveWay(reading);
    if (reading.phase.isSet() && m_link.PortOpen()) {
        if (m_sendIndex <= lastMemoryChannel) {
            sendNext();
        } else {
            waitForRest(reading);
        }
    }
    reading.phase.invert();
}

void MemoryReader::sendNext() {
    const std::string& command = m_commands[m_sendIndex];
    m_link.send(command);
    m_link.sent().append(command);
    m_link.sent().append(crLf);
    m_link.panels().Error = "Reading Memory " + std::to_string(m_sendIndex);
    m_link.progress().value = m_sendIndex;
    ++m_sendIndex;
}

/// No command beyond the last channel goes out: an answer that was lost on the way must be missed, not be replaced by
/// the answer of a channel that nobody wants.
void MemoryReader::waitForRest(Reading& reading) {
    if (++m_silentSteps == patience) fail(reading);
}

void MemoryReader::fail(Reading& reading) {
    reading.timer->setEnabled(false);
    m_link.progress().hide();
    m_link.panels().Error = "Communication faild ";
    ended.emit(TransferEnd::NoAnswer);
}

/// Another operation has taken over the answers: the rest of the commands would come to nothing and disturb the other.
void MemoryReader::giveWay(Reading& reading) {
    const ActiveOperation other = m_link.activeOperation();
    const bool needsNoProgress = other == ActiveOperation::ReadOneChannel || other == ActiveOperation::Idle;
    if (needsNoProgress) return fail(reading);
    reading.timer->setEnabled(false);
    ended.emit(TransferEnd::NoAnswer);
}

Rest MemoryReader::takeAnswer(Reading& reading) {
    if (!reading.timer->Enabled()) return Rest::GoOn;
    const auto answer = memoryAnswerIn(m_link.answers().takeAnswer());
    if (!answer || m_answerIndex >= m_sendIndex) return Rest::GoOn;  // news that nobody asked for
    const std::string& command = m_commands[m_answerIndex];
    if (const auto stored = storedMemoryString(command, *answer)) {
        if (!isUndamaged(*stored)) ++m_damaged;
        m_found.set(m_storeIndex++, *stored);
        m_link.received().append(command + *stored + std::string(crLf));
    }
    m_silentSteps = 0;
    if (++m_answerIndex <= lastMemoryChannel) return Rest::GoOn;
    finish(reading);
    return Rest::Discard;
}

void MemoryReader::keepFound() {
    m_table = m_found;
}

void MemoryReader::finish(Reading& reading) {
    reading.timer->setEnabled(false);
    m_link.progress().hide();
    keepFound();
    if (&reading == &m_toFile) {
        saveMemoryFile();
        return;
    }
    m_link.closePort();
    m_list.fillListFromMemoryTable(m_table);
    listFilled.emit();
    tellDamage();
    ended.emit(TransferEnd::Done);
}

void MemoryReader::stop() {
    m_toFile.timer->setEnabled(false);
    m_toList.timer->setEnabled(false);
}

std::string MemoryReader::fileText() const {
    return memoryFileText(m_table, m_storeIndex - 1);
}

void MemoryReader::saveMemoryFile() {
    if (saveFile) {
        m_link.setActiveOperation(ActiveOperation::Idle);
        ended.emit(saveFile());
        return;
    }
    const std::string content = fileText();
    const auto file = m_terminal.askForFile({FileDialogRequest::Mode::Save, "Save FT-2000 Memory",
                                             std::string(memoryFileFilter), "", std::string(memoryFileExtension)});
    m_link.setActiveOperation(ActiveOperation::Idle);
    if (!file) {
        ended.emit(TransferEnd::Cancelled);
        return;
    }
    if (const auto failure = textfile::write(*file, content)) {
        m_terminal.tellFileError(*failure, {.pathNotFound = "Path wrong "});
        ended.emit(TransferEnd::FileFailed);
        return;
    }
    tellDamage();
    m_link.panels().Error = "Terminated";
    ended.emit(TransferEnd::Done);
}

/// What the radio said is kept as it came, but the owner must know that it cannot be right.
void MemoryReader::tellDamage() {
    if (m_damaged == 0) return;
    m_link.received().append("\r\n Attention: " + std::to_string(m_damaged) +
                             " channels came damaged. \r\n Please read the memories again. \r\n");
}

/// Both readings end here for good: one that only paused would go on sending when the port is opened again.
void MemoryReader::onPortClosed() {
    if (!running()) return;
    stop();
    ended.emit(TransferEnd::PortClosed);
}

}  // namespace korvex
