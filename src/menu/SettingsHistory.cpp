#include "menu/SettingsHistory.h"

#include <algorithm>

#include "menu/MenuRows.h"
#include "menu/SettingsColumns.h"

namespace korvex {

namespace {

constexpr std::size_t mostSteps = 1000;

}  // namespace

SettingsHistory::Cells SettingsHistory::cellsInGrid() const {
    Cells cells;
    const auto keys = rowKeys(m_numbers);
    const auto columns = settingsColumns(m_grid);
    for (std::size_t row = 0; row < keys.size(); ++row) {
        for (const int column : columns) {
            cells[{keys[row], column}] = m_grid.TextMatrix(static_cast<int>(row), column);
        }
    }
    return cells;
}

void SettingsHistory::note(const std::string& caption) {
    Cells present = cellsInGrid();
    Step step{caption, {}};
    for (const auto& [cell, text] : present) {
        const auto before = m_known.find(cell);
        if (before != m_known.end() && before->second != text) step.changes.push_back({cell, before->second, text});
    }
    m_known = std::move(present);
    push(std::move(step));
}

void SettingsHistory::noteCell(int row, int col, const std::string& caption) {
    if (holds || row < 0 || row >= static_cast<int>(m_numbers.size())) return;
    const auto known = m_known.find({rowKeys(m_numbers)[static_cast<std::size_t>(row)], col});
    const std::string& text = m_grid.TextMatrix(row, col);
    if (known == m_known.end() || known->second == text) return;
    Step step{caption, {{known->first, known->second, text}}};
    known->second = text;
    push(std::move(step));
}

void SettingsHistory::push(Step step) {
    if (step.changes.empty()) return;
    m_done.push_back(std::move(step));
    if (m_done.size() > mostSteps) m_done.erase(m_done.begin());
    m_undone.clear();
    tell();
}

std::optional<SettingsHistory::Done> SettingsHistory::undo() {
    if (m_done.empty()) return {};
    m_undone.push_back(std::move(m_done.back()));
    m_done.pop_back();
    return apply(m_undone.back(), &Change::before);
}

std::optional<SettingsHistory::Done> SettingsHistory::redo() {
    if (m_undone.empty()) return {};
    m_done.push_back(std::move(m_undone.back()));
    m_undone.pop_back();
    return apply(m_done.back(), &Change::after);
}

SettingsHistory::Done SettingsHistory::apply(const Step& step, std::string Change::*text) {
    const auto keys = rowKeys(m_numbers);
    Done done{step.caption, 0, 0};
    m_grid.setRedraw(false);
    for (const auto& change : step.changes) {
        const auto& [key, column] = change.cell;
        const auto row = std::find(keys.begin(), keys.end(), key);
        if (row == keys.end()) continue;  // the table has lost it
        done.row = static_cast<int>(row - keys.begin());
        done.col = column;
        m_grid.setTextMatrix(done.row, column, change.*text);
        m_known[change.cell] = change.*text;
    }
    m_grid.setRedraw(true);
    tell();
    return done;
}

void SettingsHistory::tell() {
    undoable = m_done.empty() ? std::string() : m_done.back().caption;
    redoable = m_undone.empty() ? std::string() : m_undone.back().caption;
}

}  // namespace korvex
