#include "menu/MenuRestore.h"

#include <filesystem>
#include <utility>

#include "cat/FileToRestore.h"
#include "menu/MenuFile.h"

namespace korvex {

namespace {

const std::string boxTitle = "Restore Menu to FT2000";

Result<std::vector<std::string>> linesToRestore(const std::string& content) {
    auto lines = menuFileLines(content);
    if (lines && itemsTold(*lines) == 0) return RuntimeError{errors::TypeMismatch, "There is no menu item in it"};
    return lines;
}

}  // namespace

bool mayWriteCatSettings(MsgBox& msgBox, const std::vector<std::string>& cat, const std::string& title) {
    if (cat.empty()) return false;
    std::string items;
    for (const auto& line : cat) items += (items.empty() ? "" : ", ") + itemInLine(line);
    return msgBox.confirm(
        "These settings hold the radio's own CAT settings, too (menu items " + items +
            ").\nWith another speed or with RTS on, the radio may not answer any more.\n\n"
            "All others are written. Write these as well, behind them?\n\"No\" leaves them as they are in the radio.",
        title);
}

bool mayWriteNumbers(MsgBox& msgBox, const std::vector<std::string>& lines, const KnownRadio& radio,
                     const std::string& title) {
    const auto numbers = numbersIn(lines);
    if (!numbers || *numbers == menuNumbersOf(radio)) return true;
    if (*numbers == MenuNumbers::Later) {
        msgBox.exclamation(
            "This radio has the menu numbers of early firmware, by the check of " + radio.checked +
                ".\nThese settings have later numbers, most of which are one higher: they would set other items than "
                "they are meant for. Nothing was sent.",
            title);
        return false;
    }
    return msgBox.confirm(
        "These settings have the menu numbers of early firmware, most of which are one lower than in later "
        "radios.\nIn a later radio they would set other items than they are meant for.\n\nWrite them all the same? "
        "\"Check Radio...\" finds out which numbers this one has.",
        title);
}

MenuRestore::MenuRestore(CatLink& link, OwnersFiles& files, MenuWriter& writer)
    : m_link(link), m_files(files), m_writer(writer) {
    m_written = writer.ended.connect([this](const Outcome& outcome) {
        m_link.report(outcome, menuItemsWritten);
        ended.emit(outcome);
    });
}

void MenuRestore::mnu_Restore_Click() {
    const auto chosen =
        askForLines(m_files, m_link.panels(), {{"Restore Menu to FT-2000 ", "mnu"}, "menu", boxTitle, linesToRestore});
    if (chosen.kind != Outcome::Kind::Done) return end(chosen.kind);
    if (!mayBeIncomplete(chosen.file, chosen.lines)) return end(Outcome::Kind::Cancelled);
    if (!m_link.PortOpen()) {
        m_link.panels().Error = "Nothing was sent: the port is closed";
        return end(Outcome::Kind::PortClosed);
    }
    if (!mayWriteNumbers(m_files.msgBox(), chosen.lines, m_link.known(), boxTitle)) {
        return end(Outcome::Kind::Cancelled);
    }
    MenuLines apart = apartFromCatLines(chosen.lines, menuNumbersOf(m_link.known()));
    const bool withCat = mayWriteCatSettings(m_files.msgBox(), apart.cat, boxTitle);
    // The rows of a short file that are not there are line ends, which the radio passes over.
    apart.items.resize(std::max(apart.items.size(), menuItemCount - apart.cat.size()));
    if (withCat) apart.items.insert(apart.items.end(), apart.cat.begin(), apart.cat.end());
    m_writer.write(std::move(apart.items));
}

bool MenuRestore::mayBeIncomplete(const std::string& file, const std::vector<std::string>& lines) {
    const int told = itemsTold(lines);
    if (told + itemsRefused(lines) >= menuItemCount) return true;
    const std::string name = std::filesystem::path(file).filename().string();
    return m_files.msgBox().confirm(name + " holds " + std::to_string(told) + " of " + std::to_string(menuItemCount) +
                                        " menu items.\nThe radio keeps what it has for the others.\n\nRestore these " +
                                        std::to_string(told) + "?",
                                    boxTitle);
}

}  // namespace korvex
