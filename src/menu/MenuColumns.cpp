#include "menu/MenuColumns.h"

#include <filesystem>
#include <map>
#include <vector>

#include "base/CodePage.h"
#include "base/NumberText.h"
#include "cat/Outcome.h"
#include "menu/MenuFile.h"
#include "menu/SettingsColumns.h"

namespace korvex {

namespace {

const std::string loadTitle = "Load Column from Menu File";
const std::string saveTitle = "Save Column in Menu File";
constexpr std::size_t headLength = 5;  // EX042

/// The value of each item that these lines of a menu file tell, by its number.
std::map<std::string, std::string> valuesIn(const std::vector<std::string>& lines) {
    std::map<std::string, std::string> values;
    for (const auto& line : lines) {
        if (line.size() < headLength + 2) continue;
        values[itemInLine(line)] = utf8FromWire(line.substr(headLength, line.size() - headLength - 1));
    }
    return values;
}

std::string nameOf(const FileEnd& end) {
    return std::filesystem::path(end.file.value_or("")).filename().string();
}

std::string itemsOfAll(int items) {
    return std::to_string(items) + " of " + std::to_string(menuItemCount) + " items";
}

MenuCommandTable tableOf(const std::vector<std::string>& commands) {
    MenuCommandTable table;
    for (int item = 1; item <= menuItemCount; ++item) {
        const std::string& command = commands[static_cast<std::size_t>(item) - 1];
        if (command != menuReadCommand(item)) table.setAnswer(item, command);
    }
    return table;
}

}  // namespace

std::string MenuColumns::copy(int from, int to) {
    if (from == to || !isSettingsColumn(m_grid, from) || !isSettingsColumn(m_grid, to)) return {};
    int changed = 0;
    m_grid.setRedraw(false);
    for (int row = 1; row < m_grid.Rows(); ++row) {
        const std::string text = m_grid.TextMatrix(row, from);
        if (m_grid.TextMatrix(row, to) != text) ++changed;
        m_grid.setTextMatrix(row, to, text);
    }
    m_grid.setRedraw(true);
    const std::string told = columnName(m_grid, from) + " to " + columnName(m_grid, to);
    m_history.note("Copy of " + told);
    return "Copied " + told + ": " + (changed == 0 ? "nothing" : std::to_string(changed)) + " changed";
}

Failure MenuColumns::take(int column, const std::string& content, std::string& told) {
    const auto lines = menuFileLines(content);
    if (!lines) return lines.error();
    const auto values = valuesIn(*lines);
    if (values.empty()) return RuntimeError{errors::TypeMismatch, "There is no menu item in it"};
    int placed = 0;
    std::vector<std::string> untold;
    m_grid.setRedraw(false);
    for (int item = 1; item <= menuItemCount; ++item) {
        const std::string number = zeroPadded(item, 3);
        const auto value = values.find(number);
        const int row = rowOfItem(m_grid, number);
        if (row < 0) continue;
        m_grid.setTextMatrix(row, column, value == values.end() ? std::string() : value->second);
        if (value != values.end()) {
            ++placed;
        } else {
            untold.push_back(number);
        }
    }
    m_grid.setRedraw(true);
    told = itemsOfAll(placed) + " into " + columnName(m_grid, column);
    if (!untold.empty()) told += "; empty now: " + someOf(untold);
    return {};
}

std::string MenuColumns::load(int column) {
    std::string told;
    const auto read =
        m_files.read({loadTitle, "mnu"}, [&](const std::string& content) { return take(column, content, told); });
    if (read.failure) {
        m_files.msgBox().stop(nameOf(read) + ": " + read.failure->text + ".\n\nThe column is as it was.", loadTitle);
        return {};
    }
    if (!read.file) return {};
    m_history.note("Load of " + nameOf(read));
    return "Loaded " + nameOf(read) + ": " + told;
}

std::string MenuColumns::save(int column) {
    const auto commands = commandsOf(m_grid, column);
    if (!commands) {
        m_files.msgBox().exclamation(commands.error().text + "; nothing was saved.", saveTitle);
        return {};
    }
    const MenuCommandTable table = tableOf(*commands);
    const std::string content = menuFileText(table);
    const int items = itemsTold(*menuFileLines(content));
    const auto saved = m_files.write({saveTitle, "mnu", items < menuItemCount}, content,
                                     [this](const RuntimeError& error) { m_files.tell(error, saveTitle); });
    if (!saved.file || saved.failure) return {};
    return "Saved " + columnName(m_grid, column) + " in " + nameOf(saved) + ": " + itemsOfAll(items) +
           (items < menuItemCount ? "; empty: " + someOf(missingItems(table)) : "");
}

}  // namespace korvex
