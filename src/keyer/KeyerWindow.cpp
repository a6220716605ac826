#include "keyer/KeyerWindow.h"

#include <utility>

#include "base/CodePage.h"
#include "cat/SaveOutcome.h"
#include "keyer/KeyerFile.h"
#include "platform/Settings.h"
#include "platform/TextFile.h"

namespace korvex {

namespace {

constexpr const char* filter = "Flat File (*.kem)|*.kem|All Files (*.*)|*.*";

std::string_view titleFor(int number) {
    switch (number) {
        case errors::FileNotFound: return "Datei nicht gefunden";
        case errors::PathNotFound: return "Pfadeingabe falsch ";
        case errors::TypeMismatch: return "Datei nicht für diese Version des Programms ";
        default: return "Pfadeingabe falsch ausgefüllt";
    }
}

}  // namespace

KeyerWindow::KeyerWindow(KeyerNeeds needs) : m_needs(std::move(needs)), m_reader(m_needs.link), m_writer(m_needs.link) {
    m_connections += m_reader.began.connect([this] {
        hint = "";
        m_table.clearTexts();
    });
    m_connections +=
        m_reader.told.connect([this](int memory) { m_table.setText(memory, keyerText(m_reader.texts(), memory)); });
    m_connections += m_reader.ended.connect([this](const Outcome& outcome) { onReadEnded(outcome); });
    m_connections += m_writer.ended.connect([this](const Outcome& outcome) { onWriteEnded(outcome); });
}

template <class Test>
std::string KeyerWindow::memoriesThat(Test test) const {
    std::string names;
    for (int row = 1; row < KeyerTable::rows; ++row) {
        if (test(row)) names += (names.empty() ? "KM" : ", KM") + std::to_string(row);
    }
    return names;
}

void KeyerWindow::readKeyer() {
    finishEditing.emit();
    m_reader.read();
}

void KeyerWindow::onReadEnded(const Outcome& outcome) {
    if (outcome.isDone()) return;
    if (outcome.kind == Outcome::Kind::Refused) {
        hint =
            "The radio refused to tell: " + memoriesThat([this](int memory) { return m_reader.wasRefused(memory); }) +
            ".";
        return;
    }
    if (outcome.kind != Outcome::Kind::NoAnswer) {
        hint = inWords(outcome, {"memory", "memories"});
        return;
    }
    hint = "Attention: only " + std::to_string(m_reader.answered()) + " of " + std::to_string(keyerMemories) +
           " memories were answered in time. Please read again.";
}

bool KeyerWindow::canBeSent() {
    for (int row = 1; row < KeyerTable::rows; ++row) {
        const std::string why = m_table.whyNotSendable(row);
        if (why.empty()) continue;
        m_needs.msgBox.exclamation("Nothing was written. Memory " + std::to_string(row) + ": " + why + ".");
        return false;
    }
    return true;
}

void KeyerWindow::writeKeyer() {
    finishEditing.emit();
    if (!canBeSent()) return;
    m_written = m_table.texts();
    m_writer.write(m_written);
}

void KeyerWindow::onWriteEnded(const Outcome& outcome) {
    const std::string told = inWords(outcome, {"memory", "memories", true});
    if (!outcome.isDone()) {
        hint = told;
        return;
    }
    const auto length = [this](int memory) { return keyerText(m_written, memory).size(); };
    const std::string empty = memoriesThat([&](int memory) { return length(memory) == 0; });
    const std::string full = memoriesThat([&](int memory) { return length(memory) > longestKeyerText; });
    std::string text = told + ". ";
    if (!empty.empty()) text += "An empty text changes nothing in the radio: " + empty + ". ";
    if (!full.empty()) text += "More than 50 characters, which the radio does not take: " + full + ".";
    hint = text;
}

std::string KeyerWindow::rememberedPath() const {
    return readSetting(m_needs.settings, keys::keyerPath, m_needs.programFolder);
}

void KeyerWindow::remember(const std::string& file) {
    writeSetting(m_needs.settings, keys::keyerPath, file);
}

bool KeyerWindow::canBeStored() {
    for (int row = 0; row < KeyerTable::rows; ++row) {
        const std::string why = m_table.whyNotStorable(row);
        if (why.empty()) continue;
        std::string text = "Nothing was saved. ";
        text += row == 0 ? "Titles: " : "Memory " + std::to_string(row) + ": ";
        m_needs.msgBox.exclamation(text + why + ".");
        return false;
    }
    return true;
}

Outcome::Kind KeyerWindow::saveKeyerFile() {
    finishEditing.emit();
    hint = "";
    if (!canBeStored()) return Outcome::Kind::FileFailed;
    const Saved saved =
        saveByDialog(m_needs.fileDialog, {FileDialogRequest::Mode::Save, "", filter, rememberedPath(), "kem"},
                     keyerFileText(m_table.fileRows()), [this](const RuntimeError& error) {
                         hint = "Not saved: " + error.text;
                         m_needs.msgBox.stop(error.text);
                     });
    if (saved.file) remember(*saved.file);
    return outcomeOf(saved);
}

Outcome::Kind KeyerWindow::loadKeyerFile() {
    finishEditing.emit();
    const auto file = m_needs.fileDialog.show({FileDialogRequest::Mode::Open, "", filter, rememberedPath(), ""});
    if (!file) return Outcome::Kind::Cancelled;
    const auto content = textfile::read(*file);
    if (!content) {
        tellLoadError(content.error());
        return Outcome::Kind::FileFailed;
    }
    const auto rows = parseKeyerFile(*content);
    if (!rows) {
        tellLoadError(rows.error());
        return Outcome::Kind::FileFailed;
    }
    remember(*file);
    m_table.fill(*rows);
    const std::string bad = memoriesThat([this](int row) { return !m_table.whyNotSendable(row).empty(); });
    const int inFile = static_cast<int>(rows->size()) - 1;
    std::string text;
    if (inFile < keyerMemories) {
        text = "The file holds only " + std::to_string(inFile) + " of " + std::to_string(keyerMemories) + " memories. ";
    }
    if (!bad.empty()) text += "The radio could not take these texts as they are: " + bad + ".";
    hint = text;
    return Outcome::Kind::Done;
}

void KeyerWindow::tellLoadError(const RuntimeError& error) {
    m_needs.msgBox.stop(error.text, std::string(titleFor(error.number)));
}

void KeyerWindow::closeBox() {
    finishEditing.emit();
    storePlace.emit();
    hide.emit();
}

void KeyerWindow::mnu_clWindow_Click() {
    closeBox();
    buttonBackToNormal.emit();
}

}  // namespace korvex
