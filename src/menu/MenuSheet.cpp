#include "menu/MenuSheet.h"

#include <optional>
#include <utility>

#include "menu/MenuRows.h"
#include "menu/SettingsColumns.h"

namespace korvex {

namespace {

/// An owner's table may call its columns otherwise; then it is where the shipped table has it.
int nameColumnOf(const MSFlexGrid& grid) {
    constexpr int shipped = 2;
    const int titled = columnTitled(grid, "Name");
    return titled < 0 ? shipped : titled;
}

}  // namespace

MenuSheet::MenuSheet(MSFlexGrid& grid, const std::vector<std::string>& numbers) : m_grid(grid), m_numbers(numbers) {
    for (auto* filter : {&onlyDiffering, &onlyNamed, &onlyUnlikeRadio}) {
        m_connections += filter->changed.connect([this](bool) { refresh(); });
    }
}

void MenuSheet::select(int column) {
    if (!isSettingsColumn(m_grid, column)) return;
    m_selected = column;
    refresh();
}

void MenuSheet::refresh() {
    compare();
    showRows();
    tellCounts();
}

void MenuSheet::compare() {
    m_differences = differencesIn(m_grid, m_selected, m_radio);
    m_grid.setRedraw(false);
    for (const int column : settingsColumns(m_grid)) {
        for (int row = 0; row < m_grid.Rows(); ++row) colour(row, column);
    }
    m_grid.setRedraw(true);
    tellCounts();
}

void MenuSheet::colour(int row, int column) {
    MSFlexGrid::CellMark mark;
    const auto other = m_differences.unlike.find({row, column});
    const bool differs = other != m_differences.unlike.end();
    if (differs) {
        mark = {"≠", "Differs from " + columnName(m_grid, other->second.column) + ": " + other->second.value};
    }
    const auto radio = m_differences.unlikeRadio.find(row);
    if (column == m_selected && radio != m_differences.unlikeRadio.end()) {
        mark = {"FT " + radio->second, "The radio, as last read, has " + radio->second};
    }
    const bool selected = column == m_selected && row > 0;
    m_grid.setCellBackColor(row, column,
                            selected  ? std::optional(selectedColour)
                            : differs ? std::optional(differentColour)
                                      : std::nullopt);
    m_grid.setMark(row, column, std::move(mark));
}

bool MenuSheet::isWanted(int itemRow, int nameColumn) const {
    if (onlyDiffering && !m_differences.rows.contains(itemRow)) return false;
    if (onlyUnlikeRadio && !m_differences.unlikeRadio.contains(itemRow)) return false;
    return !onlyNamed || !m_grid.TextMatrix(itemRow, nameColumn).empty();
}

/// The rows that go with an item come and go with it.
void MenuSheet::showRows() {
    m_items = m_itemsHidden = 0;
    const bool filtered = onlyDiffering || onlyNamed || onlyUnlikeRadio;
    const int nameColumn = nameColumnOf(m_grid);
    const int rows = static_cast<int>(m_numbers.size());
    std::vector<bool> hidden(static_cast<std::size_t>(m_grid.Rows()), filtered);
    for (int row = 1; row < rows; ++row) {
        const bool wanted = !filtered || isWanted(itemRowOf(m_numbers, row), nameColumn);
        hidden[static_cast<std::size_t>(row)] = !wanted;
        if (!isMenuNumber(m_numbers[static_cast<std::size_t>(row)])) continue;
        ++m_items;
        if (!wanted) ++m_itemsHidden;
    }
    m_grid.setHiddenRows(std::move(hidden));
}

void MenuSheet::tellCounts() {
    std::string text = inWords(m_differences, m_grid);
    const auto add = [&text](const std::string& more) { text += (text.empty() ? "" : "; ") + more; };
    if (m_selected > 0 && knowsRadio()) {
        add(columnName(m_grid, m_selected) + " differs from the radio, as last read, in " +
            std::to_string(unlikeRadio()));
    }
    if (m_itemsHidden > 0) {
        add(std::to_string(m_items - m_itemsHidden) + " of " + std::to_string(m_items) + " items in sight");
    }
    counts = text;
}

}  // namespace korvex
