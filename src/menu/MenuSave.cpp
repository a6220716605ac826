#include "menu/MenuSave.h"

#include "menu/MenuFile.h"

namespace korvex {

MenuSave::MenuSave(Terminal& terminal) : m_terminal(terminal), m_reader(terminal.link()) {
    m_read = m_reader.ended.connect([this](const Outcome& outcome) { onRead(outcome); });
}

void MenuSave::onRead(const Outcome& outcome) {
    Outcome told = outcome;
    if (outcome.isDone()) {
        told.kind = saveMenuFile();
    } else if (outcome.kind != Outcome::Kind::NoAnswer) {
        m_terminal.link().panels().Error = inWords(outcome, {});
    }
    ended.emit(told);
}

Outcome::Kind MenuSave::saveMenuFile() {
    const auto saved = m_terminal.saveFile(
        {FileDialogRequest::Mode::Save, "Save FT-2000 Menu", "Flat File (*.mnu)|*.mnu|All Files (*.*)|*.*", "", "mnu"},
        menuFileText(answers()), {.pathNotFound = "Path wrong "});
    if (saved != Outcome::Kind::Done) return saved;
    m_terminal.link().received().clear();
    if (const int inPlace = answersInPlace(answers()); inPlace != menuItemCount) {
        // The file is what the radio said, but the owner must know that it is not the whole menu.
        m_terminal.link().received().set(" Attention: only " + std::to_string(inPlace) + " of " +
                                         std::to_string(menuItemCount) +
                                         " menu items were answered \r\n in time and in order. Please read the menu "
                                         "again. \r\n");
    }
    m_terminal.link().panels().Error = "Terminated";
    return Outcome::Kind::Done;
}

}  // namespace korvex
