#include "menu/MenuSave.h"

#include "cat/FileToRestore.h"
#include "cat/KeptReading.h"
#include "menu/MenuFile.h"

namespace korvex {

namespace {

/// The file is what the radio said, but the owner must know that it is not the whole menu.
std::string notWhole(const MenuCommandTable& table) {
    const auto missing = missingItems(table);
    const auto refused = refusedItems(table);
    if (missing.empty()) return {};
    const std::string all = std::to_string(menuItemCount);
    const std::string count = std::to_string(refused.size()) + " of " + all + " menu items";
    if (missing == refused) {
        return " Attention: the radio refused " + count + ": \r\n " + someOf(refused) + " \r\n";
    }
    std::string text = " Attention: only " + std::to_string(menuItemCount - missing.size()) + " of " + all +
                       " menu items were answered \r\n in time and in order. Please read the menu again. \r\n "
                       "Missing: " +
                       someOf(missing) + " \r\n";
    if (!refused.empty()) text += " Refused by the radio: " + someOf(refused) + " \r\n";
    return text;
}

}  // namespace

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
    if (const std::string attention = notWhole(answers()); !attention.empty()) m_link.received().set(attention);
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
