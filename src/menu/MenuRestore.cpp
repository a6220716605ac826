#include "menu/MenuRestore.h"

#include <filesystem>
#include <utility>

#include "menu/MenuFile.h"
#include "platform/TextFile.h"

namespace korvex {

namespace {

const std::string boxTitle = "Restore Menu to FT2000";

}  // namespace

bool mayWriteCatSettings(MsgBox& msgBox, const std::vector<std::string>& cat, const std::string& title) {
    if (cat.empty()) return false;
    std::string items;
    for (const auto& line : cat) items += (items.empty() ? "" : ", ") + itemInLine(line);
    return msgBox.confirm("These settings hold the radio's own CAT settings, too (menu items " + items +
                              ").\nWith another speed or with RTS on, the radio may not answer any more.\n\n"
                              "Write them as well, after all others? \"No\" leaves them as they are in the radio.",
                          title);
}

MenuRestore::MenuRestore(Terminal& terminal, MenuWriter& writer) : m_terminal(terminal), m_writer(writer) {
    m_written = writer.ended.connect([this](const Outcome& outcome) {
        m_terminal.link().report(outcome, menuItemsWritten);
        ended.emit(outcome);
    });
}

void MenuRestore::mnu_Restore_Click() {
    auto lines = askForLines();
    if (!lines) return;
    if (!m_terminal.link().PortOpen()) {
        m_terminal.link().panels().Error = "Nothing was sent: the port is closed";
        return end(Outcome::Kind::PortClosed);
    }
    MenuLines apart = apartFromCatLines(*lines);
    const bool withCat = mayWriteCatSettings(m_terminal.msgBox(), apart.cat, boxTitle);
    // The rows of a short file that are not there are line ends, which the radio passes over.
    apart.items.resize(std::max(apart.items.size(), menuItemCount - apart.cat.size()));
    if (withCat) apart.items.insert(apart.items.end(), apart.cat.begin(), apart.cat.end());
    m_writer.write(std::move(apart.items));
}

std::optional<std::vector<std::string>> MenuRestore::askForLines() {
    const auto file = m_terminal.askForFile({FileDialogRequest::Mode::Open, "Restore Menu to FT-2000 ",
                                             "Flat File (*.mnu)|*.mnu|All Files (*.*)|*.*", "", "mnu"});
    if (!file) {
        end(Outcome::Kind::Cancelled);
        return std::nullopt;
    }
    auto lines = linesOf(*file);
    if (lines && mayBeIncomplete(*file, *lines)) return lines;
    end(lines ? Outcome::Kind::Cancelled : Outcome::Kind::FileFailed);
    return std::nullopt;
}

/// The lines of a file that is one; what speaks against it is told.
std::optional<std::vector<std::string>> MenuRestore::linesOf(const std::string& file) {
    const auto content = textfile::read(file);
    if (!content) {
        m_terminal.tellFileError(content.error());
        return std::nullopt;
    }
    auto lines = menuFileLines(*content);
    std::string why;
    if (!lines) {
        why = lines.error().text;
    } else if (itemsTold(*lines) == 0) {
        why = "There is no menu item in it";
    }
    if (why.empty()) return std::move(*lines);
    m_terminal.refuseFile(file, "menu", why, boxTitle);
    return std::nullopt;
}

bool MenuRestore::mayBeIncomplete(const std::string& file, const std::vector<std::string>& lines) {
    const int told = itemsTold(lines);
    if (told + itemsRefused(lines) >= menuItemCount) return true;
    const std::string name = std::filesystem::path(file).filename().string();
    return m_terminal.msgBox().confirm(
        name + " holds " + std::to_string(told) + " of " + std::to_string(menuItemCount) +
            " menu items.\nThe radio keeps what it has for the others.\n\nRestore these " + std::to_string(told) + "?",
        boxTitle);
}

}  // namespace korvex
