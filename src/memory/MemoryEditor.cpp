#include "memory/MemoryEditor.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "base/CodePage.h"
#include "base/Lines.h"
#include "base/NumberText.h"

namespace korvex {

namespace {

bool isLetterOrDigit(char c) {
    const char upper = asciiUpper(c);
    return isDigit(c) || (upper >= 'A' && upper <= 'Z');
}

/// A code that no list knows, but that can stand in a command.
bool canBeCarried(MemoryField field, std::string_view code) {
    return code.size() == static_cast<std::size_t>(memoryPlace(field).width) &&
           std::all_of(code.begin(), code.end(), isLetterOrDigit);
}

}  // namespace

MemoryEditor::MemoryEditor(CatLink& link, MemoryList& list, Clock& clock)
    : m_link(link), m_list(list), m_timer2(clock.makeTimer()), m_patience(clock, [this] { giveUp(); }) {
    m_choices.try_emplace(MemoryField::ClarifierDirection, directionTable);
    m_choices.try_emplace(MemoryField::RxClarifier, clarifierTable);
    m_choices.try_emplace(MemoryField::TxClarifier, clarifierTable);
    m_choices.try_emplace(MemoryField::Mode, modeTable);
    m_choices.try_emplace(MemoryField::CtcssMode, ctcssModeTable);
    m_choices.try_emplace(MemoryField::ToneNumber, toneTable);
    m_choices.try_emplace(MemoryField::Shift, shiftTable);
    m_timer2->setInterval(1000);
    m_connections += m_timer2->tick.connect([this] { Timer2_Timer(); });
    m_connections += txt1.text.changed.connect([this](const std::string&) { composeEditorWriteCommand(); });
    m_connections += txt2.text.changed.connect([this](const std::string&) { composeEditorWriteCommand(); });
    m_connections += m_link.closed.connect([this] { endReading(TransferEnd::PortClosed); });
    m_link.answers().onAnswer(ActiveOperation::ReadOneChannel, [this] { return takeAnswer(); });
}

void MemoryEditor::Form_Load() {
    m_fields[MemoryField::FixedDigit] = "0";
    Combo1_Click(0);
    for (const auto& [field, choice] : m_choices) choose(field, 0);
    m_timer2->setEnabled(true);
}

void MemoryEditor::Timer2_Timer() {
    m_timer2->setEnabled(false);
    composeEditorWriteCommand();
    boxesShownAnew.emit();
    m_followsList = true;
}

void MemoryEditor::Combo1_Click(int position) {
    if (position < 0 || position >= MemoryList::rows) return;
    Combo1 = position;
    m_fields[MemoryField::Channel] = channelText(channel());
    loadEditorFromList();
}

void MemoryEditor::chooseRow(int row) {
    Combo1_Click(row - 1);
}

void MemoryEditor::choose(MemoryField field, int position) {
    const std::string code = codes(field).code(position);
    if (code.empty()) return;
    choice(field) = position;
    m_fields[field] = code;
    composeEditorWriteCommand();
}

void MemoryEditor::composeEditorWriteCommand() {
    if (m_loading) return;
    m_fields[MemoryField::Frequency] = txt1.digits();
    m_fields[MemoryField::ClarifierOffset] = txt2.digits();
    Text2 = memoryWriteCommand(m_fields);
}

/// A code that its list does not have (the radio knows more modes than the form) is carried as it stands, so that a
/// channel can be read and written back unchanged; the combo box then shows no entry.
void MemoryEditor::take(MemoryField field, std::string_view code) {
    const auto position = codes(field).position(code);
    const bool carried = !position && canBeCarried(field, code);
    choice(field) = carried ? -1 : position.value_or(0);
    m_fields[field] = carried ? std::string(code) : codes(field).code(choice(field));
}

void MemoryEditor::loadEditorFromList() {
    if (!m_followsList) return;
    m_loading = true;
    txt1.setDigits(m_list.cell(channel(), MemoryField::Frequency));
    txt2.setDigits(m_list.cell(channel(), MemoryField::ClarifierOffset));
    for (const auto& [field, choice] : m_choices) take(field, m_list.cell(channel(), field));
    Text1 = m_list.cell(channel(), MemoryField::Remark);
    m_loading = false;
    composeEditorWriteCommand();
}

std::optional<std::string> MemoryEditor::Text1_Change(const std::string& utf8) {
    if (const auto character = firstInexpressible(utf8)) return "\"" + *character + "\" cannot be kept in a list file";
    if (utf8.find_first_of("\r\n") != std::string::npos) return "A line end cannot be kept in a list file";
    Text1 = utf8;
    return std::nullopt;
}

void MemoryEditor::Command1_Click() {
    composeEditorWriteCommand();
    m_list.place(channel(), m_fields);
    m_list.setCell(channel(), MemoryField::Remark, Text1);
}

void MemoryEditor::cmd2_Click() {
    if (m_link.PortOpen()) m_link.send(Text2.get());
    cmd3_Click();
}

void MemoryEditor::cmd3_Click() {
    if (!m_link.PortOpen()) return;
    m_link.setActiveOperation(ActiveOperation::ReadOneChannel);
    m_currentRow = channel();
    m_list.setCell(m_currentRow, MemoryField::Channel, channelText(channel()));
    m_link.answers().clearAccumulator();
    m_link.send(memoryReadCommand(channel()) + std::string(crLf));
    m_waits = true;
    m_patience.begin();
}

bool MemoryEditor::isReading() const {
    return m_waits && m_link.activeOperation() == ActiveOperation::ReadOneChannel;
}

void MemoryEditor::endReading(TransferEnd how) {
    m_patience.end();
    if (std::exchange(m_waits, false)) readingEnded.emit(how);
}

void MemoryEditor::giveUp() {
    if (isReading()) {
        m_link.setActiveOperation(ActiveOperation::Idle);
        m_link.panels().Error = "Communication faild ";
    }
    endReading(TransferEnd::NoAnswer);
}

/// The error answer of a channel without data empties the row. Anything else that is no memory string (the radio tells
/// of its dial by itself when it is set so) is passed over.
Rest MemoryEditor::takeAnswer() {
    const auto answer = memoryAnswerIn(m_link.answers().takeAnswer());
    if (!answer) return Rest::GoOn;
    const auto record = isErrorAnswer(*answer) ? MemoryRecord{} : parseMemoryString(*answer);
    if (!record) return Rest::GoOn;
    m_list.placeAnswer(m_currentRow, *record);
    loadEditorFromList();
    endReading(TransferEnd::Done);
    return Rest::GoOn;
}

}  // namespace korvex
