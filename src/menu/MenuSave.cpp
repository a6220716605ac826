#include "menu/MenuSave.h"

#include "cat/FileToRestore.h"
#include "menu/MenuFile.h"

namespace korvex {

MenuSave::MenuSave(CatLink& link, OwnersFiles& files) : m_link(link), m_files(files), m_reader(link) {
    m_read = m_reader.ended.connect([this](const Outcome& outcome) { onRead(outcome); });
}

void MenuSave::onRead(const Outcome& outcome) {
    Outcome told = outcome;
    if (outcome.isDone()) {
        told.kind = saveMenuFile();
    } else if (outcome.kind != Outcome::Kind::NoAnswer) {
        m_link.panels().Error = inWords(outcome, {});
    }
    ended.emit(told);
}

Outcome::Kind MenuSave::saveMenuFile() {
    const FileEnd saved = m_files.write({"Save FT-2000 Menu", "mnu"}, menuFileText(answers()),
                                        [this](const RuntimeError& error) { m_files.tell(error, "Path wrong "); });
    if (outcomeOf(saved) != Outcome::Kind::Done) return outcomeOf(saved);
    m_link.received().clear();
    if (const int inPlace = answersInPlace(answers()); inPlace != menuItemCount) {
        // The file is what the radio said, but the owner must know that it is not the whole menu.
        m_link.received().set(" Attention: only " + std::to_string(inPlace) + " of " + std::to_string(menuItemCount) +
                              " menu items were answered \r\n in time and in order. Please read the menu "
                              "again. \r\n");
    }
    m_link.panels().Error = "Terminated";
    return Outcome::Kind::Done;
}

}  // namespace korvex
