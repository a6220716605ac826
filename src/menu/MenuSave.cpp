#include "menu/MenuSave.h"

#include "cat/FileToRestore.h"
#include "cat/KeptReading.h"
#include "menu/MenuFile.h"

namespace korvex {

MenuSave::MenuSave(CatLink& link, OwnersFiles& files) : m_link(link), m_files(files), m_reader(link) {
    m_read = m_reader.ended.connect([this](const Outcome& outcome) { onRead(outcome); });
}

void MenuSave::onRead(const Outcome& outcome) {
    Outcome told = outcome;
    if (outcome.isDone()) {
        told.kind = saveMenuFile();
    } else {
        const auto named = namedAnswers(answers());
        told.done = answersInPlace(named);
        if (told.kind != Outcome::Kind::NoAnswer) m_link.panels().Error = inWords(told, {});
        if (mayKeep(m_link, m_files.msgBox(), told, {told.done, {}, keepInFile})) saveIncomplete(named);
    }
    ended.emit(told);
}

Outcome::Kind MenuSave::saveMenuFile() {
    const auto saved = write(answers(), false);
    if (saved != Outcome::Kind::Done) return saved;
    if (const int inPlace = answersInPlace(answers()); inPlace != menuItemCount) {
        // The file is what the radio said, but the owner must know that it is not the whole menu.
        m_link.received().set(" Attention: only " + std::to_string(inPlace) + " of " + std::to_string(menuItemCount) +
                              " menu items were answered \r\n in time and in order. Please read the menu "
                              "again. \r\n");
    }
    m_link.panels().Error = "Terminated";
    return Outcome::Kind::Done;
}

void MenuSave::saveIncomplete(const MenuCommandTable& named) {
    if (write(named, true) != Outcome::Kind::Done) return;
    m_link.received().set(" Attention: the file holds only " + std::to_string(answersInPlace(named)) + " of " +
                          std::to_string(menuItemCount) + " menu items. \r\n");
}

Outcome::Kind MenuSave::write(const MenuCommandTable& table, bool incomplete) {
    const auto saved =
        outcomeOf(m_files.write({"Save FT-2000 Menu", "mnu", incomplete}, menuFileText(table),
                                [this](const RuntimeError& error) { m_files.tell(error, "Path wrong "); }));
    if (saved == Outcome::Kind::Done) m_link.received().clear();
    return saved;
}

}  // namespace korvex
