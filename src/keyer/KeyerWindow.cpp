#include "keyer/KeyerWindow.h"

#include "base/CodePage.h"
#include "cat/FileToRestore.h"
#include "keyer/KeyerFile.h"

namespace korvex {

namespace {

std::string_view titleFor(int number) {
    switch (number) {
        case errors::FileNotFound: return "Datei nicht gefunden";
        case errors::PathNotFound: return "Pfadeingabe falsch ";
        case errors::TypeMismatch: return "Datei nicht für diese Version des Programms ";
        default: return "Pfadeingabe falsch ausgefüllt";
    }
}

}  // namespace

KeyerWindow::KeyerWindow(CatLink& link, const OwnersDesk& desk)
    : m_files(desk, keys::keyerPath), m_reader(link), m_writer(link) {
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
        m_files.msgBox().exclamation("Nothing was written. Memory " + std::to_string(row) + ": " + why + ".");
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

bool KeyerWindow::canBeStored() {
    for (int row = 0; row < KeyerTable::rows; ++row) {
        const std::string why = m_table.whyNotStorable(row);
        if (why.empty()) continue;
        std::string text = "Nothing was saved. ";
        text += row == 0 ? "Titles: " : "Memory " + std::to_string(row) + ": ";
        m_files.msgBox().exclamation(text + why + ".");
        return false;
    }
    return true;
}

Outcome::Kind KeyerWindow::saveKeyerFile() {
    finishEditing.emit();
    hint = "";
    if (!canBeStored()) return Outcome::Kind::FileFailed;
    const auto saved = outcomeOf(m_files.write({"", "kem"}, keyerFileText(m_table.fileRows()),
                                               [this](const RuntimeError& error) { tellSaveError(error); }));
    if (saved == Outcome::Kind::Done) hint = emptyMemories(keyerMemories);
    return saved;
}

std::string KeyerWindow::emptyMemories(int last) const {
    const KeyerTexts texts = m_table.texts();
    const std::string empty =
        memoriesThat([&](int memory) { return memory <= last && keyerText(texts, memory).size() == 0; });
    return empty.empty() ? "" : "Without a text in the file: " + empty + ". ";
}

void KeyerWindow::tellSaveError(const RuntimeError& error) {
    hint = "Not saved: " + error.text;
    m_files.msgBox().stop(error.text);
}

Outcome::Kind KeyerWindow::loadKeyerFile() {
    finishEditing.emit();
    const FileEnd loaded = m_files.read({"", "kem"}, [this](const std::string& content) { return take(content); });
    if (loaded.failure) m_files.msgBox().stop(loaded.failure->text, std::string(titleFor(loaded.failure->number)));
    return outcomeOf(loaded);
}

Failure KeyerWindow::take(const std::string& content) {
    const auto rows = parseKeyerFile(content);
    if (!rows) return rows.error();
    m_table.fill(*rows);
    tellLoaded(static_cast<int>(rows->size()) - 1);
    return {};
}

void KeyerWindow::tellLoaded(int inFile) {
    const std::string bad = memoriesThat([this](int row) { return !m_table.whyNotSendable(row).empty(); });
    std::string text;
    if (inFile < keyerMemories) {
        text = "The file holds only " + std::to_string(inFile) + " of " + std::to_string(keyerMemories) + " memories. ";
    }
    text += emptyMemories(inFile);
    if (!bad.empty()) text += "The radio could not take these texts as they are: " + bad + ".";
    hint = text;
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
