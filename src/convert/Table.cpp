#include "convert/Table.h"

#include <algorithm>

#include "base/AsciiText.h"
#include "base/Lines.h"
#include "base/SheetText.h"
#include "base/TextEncoding.h"

namespace korvex {

namespace {

std::string quotedIfNeeded(const std::string& cell) {
    return cell.find_first_of("\",;\t\r\n") == std::string::npos ? cell : quotedCell(cell);
}

}  // namespace

std::string csvText(const Table& table) {
    std::string text = "\xEF\xBB\xBF";
    for (const auto& row : table) {
        for (std::size_t i = 0; i < row.size(); ++i) text += (i == 0 ? "" : ",") + quotedIfNeeded(row[i]);
        text += crLf;
    }
    return text;
}

Result<NamedTable> NamedTable::read(std::string_view content, const std::vector<std::string_view>& needed) {
    const auto text = utf8FromAnyEncoding(content);
    if (!text) return text.error();
    auto rows = readSheet(*text);
    if (!rows) return rows.error();
    NamedTable table;
    if (!rows->empty()) table.m_titles = rows->front().cells;
    for (auto& title : table.m_titles) title = std::string(trimmed(title));
    for (const auto column : needed) {
        if (!table.has(column)) return refusedLine(1, "there is no column \"" + std::string(column) + "\"");
    }
    for (std::size_t i = 1; i < rows->size(); ++i)
        table.m_rows.push_back({(*rows)[i].line, std::move((*rows)[i].cells)});
    return table;
}

bool NamedTable::has(std::string_view column) const {
    return std::any_of(m_titles.begin(), m_titles.end(), [&](const auto& title) { return isSameWord(title, column); });
}

std::string NamedTable::cell(std::size_t row, std::string_view column) const {
    const auto found =
        std::find_if(m_titles.begin(), m_titles.end(), [&](const auto& title) { return isSameWord(title, column); });
    return cellAt(row, static_cast<std::size_t>(found - m_titles.begin()));
}

std::string NamedTable::cellAt(std::size_t row, std::size_t column) const {
    const auto& cells = m_rows[row].cells;
    return column < std::min(cells.size(), m_titles.size()) ? cells[column] : std::string();
}

std::string NamedTable::word(std::size_t row, std::string_view column) const {
    return std::string(trimmed(cell(row, column)));
}

}  // namespace korvex
