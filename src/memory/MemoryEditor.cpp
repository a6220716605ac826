#include "memory/MemoryEditor.h"

#include <string_view>

#include "base/Lines.h"
#include "memory/MemoryListFile.h"

namespace korvex {

namespace {

constexpr int patienceMs = 5'000;  // for an answer

}  // namespace

MemoryEditor::MemoryEditor(CatLink& link, MemoryList& list, Clock& clock)
    : m_link(link), m_list(list), m_timer2(clock.makeTimer()) {
    m_choices.try_emplace(MemoryField::ClarifierDirection, directionTable);
    m_choices.try_emplace(MemoryField::RxClarifier, clarifierTable);
    m_choices.try_emplace(MemoryField::TxClarifier, clarifierTable);
    m_choices.try_emplace(MemoryField::Mode, modeTable);
    m_choices.try_emplace(MemoryField::CtcssMode, ctcssModeTable);
    m_choices.try_emplace(MemoryField::ToneNumber, toneTable);
    m_choices.try_emplace(MemoryField::Shift, shiftTable);
    m_timer2->setInterval(1000);
    m_connections += m_timer2->tick.connect([this] { Timer2_Timer(); });
    m_connections += txt1.text.changed.connect([this](const std::string&) { onFieldChanged(); });
    m_connections += txt2.text.changed.connect([this](const std::string&) { onFieldChanged(); });
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
    m_edited = false;
}

void MemoryEditor::Combo1_Click(int position) {
    if (position < 0 || position >= MemoryList::rows) return;
    channelPlace = position;
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
    onFieldChanged();
}

void MemoryEditor::onFieldChanged() {
    m_edited = true;
    composeEditorWriteCommand();
}

void MemoryEditor::composeEditorWriteCommand() {
    if (m_loading) return;
    m_fields[MemoryField::Frequency] = txt1.digits();
    m_fields[MemoryField::ClarifierOffset] = txt2.digits();
    writeCommand = memoryWriteCommand(m_fields);
}

/// A code that its list does not have (the radio knows more modes than the form) is carried as it stands, so that a
/// channel can be read and written back unchanged; the combo box then shows no entry.
void MemoryEditor::take(MemoryField field, std::string_view code) {
    const auto position = codes(field).position(code);
    const bool carried = !position && canStandIn(field, code);
    choice(field) = carried ? -1 : position.value_or(0);
    m_fields[field] = carried ? std::string(code) : codes(field).code(choice(field));
}

void MemoryEditor::loadEditorFromList() {
    if (!m_followsList) return;
    m_loading = true;
    txt1.setDigits(m_list.cell(channel(), MemoryField::Frequency));
    txt2.setDigits(m_list.cell(channel(), MemoryField::ClarifierOffset));
    for (const auto& [field, choice] : m_choices) take(field, m_list.cell(channel(), field));
    remarkText = m_list.cell(channel(), MemoryField::Remark);
    m_loading = false;
    composeEditorWriteCommand();
    m_edited = false;
}

void MemoryEditor::followReading() {
    if (!m_edited) loadEditorFromList();
}

std::optional<std::string> MemoryEditor::Text1_Change(const std::string& utf8) {
    if (auto refusal = whyRemarkIsRefused(utf8)) return refusal;
    remarkText = utf8;
    m_edited = true;
    return std::nullopt;
}

void MemoryEditor::Command1_Click() {
    composeEditorWriteCommand();
    const MemoryList::Step step(m_list, "copying of channel " + channelText(channel()) + " into the list");
    m_list.place(channel(), m_fields);
    m_list.setRemark(channel(), remarkText);
    m_edited = false;
}

void MemoryEditor::cmd2_Click() {
    exchange(writeCommand);
}

void MemoryEditor::cmd3_Click() {
    exchange({});
}

/// Writes the channel, if there is a command for it, and asks the radio for what it holds.
void MemoryEditor::exchange(const std::string& write) {
    if (!m_link.PortOpen()) return;
    auto operation = m_link.begin({ActiveOperation::ReadOneChannel, "Reading memory " + channelText(channel())});
    if (!operation) return readingEnded.emit(m_link.notBegun());
    m_operation = std::move(operation);
    hint = "";
    m_wrote = !write.empty();
    m_writeRefused = false;
    m_currentRow = channel();
    m_cellBefore = m_list.cell(m_currentRow, MemoryField::Channel);
    m_list.setCell(m_currentRow, MemoryField::Channel, channelText(m_currentRow));
    m_operation->expect({"MR", shortestMemoryString});
    m_operation->onAnswer([this](std::string_view answer) { return takeAnswer(answer); });
    m_operation->onEnd([this](const Outcome& outcome) { readingEnded.emit(outcome); });
    if (m_wrote) m_operation->send(write);
    m_operation->send(memoryReadCommand(m_currentRow) + std::string(crLf));
    m_operation->after(patienceMs, [this] { giveUp(); });
}

void MemoryEditor::end(Outcome::Kind how, const std::string& what) {
    if (!what.empty()) m_link.panels().Error = what;
    hint = what;
    m_operation->end(how);
}

void MemoryEditor::giveUp() {
    if (m_writeRefused) {
        takeRefusal();
        return;
    }
    m_link.panels().Error = "Communication faild ";
    hint = "The radio does not answer.";
    m_operation->end(Outcome::Kind::NoAnswer);
}

Rest MemoryEditor::takeAnswer(std::string_view answer) {
    if (isErrorAnswer(answer)) return takeRefusal();
    m_list.setCell(m_currentRow, MemoryField::Channel, m_cellBefore);
    m_list.placeAnswer(m_currentRow, *parseMemoryString(answer));
    loadEditorFromList();
    if (m_writeRefused) {
        end(Outcome::Kind::Refused,
            "The radio refused channel " + channelText(m_currentRow) + ". Shown is what it holds.");
    } else {
        end(Outcome::Kind::Done);
    }
    return Rest::GoOn;
}

/// Form and row stay as they are: nobody knows whether the channel is empty or the radio was busy. A command that was
/// refused is told before the answer to the question behind it.
Rest MemoryEditor::takeRefusal() {
    if (m_wrote && !m_writeRefused) {
        m_writeRefused = true;
        return Rest::GoOn;
    }
    m_list.setCell(m_currentRow, MemoryField::Channel, m_cellBefore);
    end(Outcome::Kind::Refused,
        "Channel " + channelText(m_currentRow) + (m_writeRefused ? " was refused." : " is empty or was refused."));
    return Rest::GoOn;
}

}  // namespace korvex
