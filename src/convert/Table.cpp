#include "convert/Table.h"

#include <algorithm>

#include "base/Lines.h"
#include "base/NumberText.h"
#include "base/TextEncoding.h"
#include "menu/SheetText.h"

namespace korvex {

namespace {

std::string quoted(const std::string& cell) {
    if (cell.find_first_of("\",;\t\r\n") == std::string::npos) return cell;
    std::string text = "\"";
    for (const char c : cell) text += c == '"' ? std::string("\"\"") : std::string(1, c);
    return text + "\"";
}

std::string trimmed(const std::string& text) {
    const auto begin = text.find_first_not_of(' ');
    if (begin == std::string::npos) return {};
    return text.substr(begin, text.find_last_not_of(' ') - begin + 1);
}

bool sameName(std::string_view one, std::string_view other) {
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [](char a, char b) { return asciiLower(a) == asciiLower(b); });
}

}  // namespace

std::string csvText(const Table& table) {
    std::string text = "\xEF\xBB\xBF";
    for (const auto& row : table) {
        for (std::size_t i = 0; i < row.size(); ++i) text += (i == 0 ? "" : ",") + quoted(row[i]);
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
    for (auto& title : table.m_titles) title = trimmed(title);
    for (const auto column : needed) {
        if (!table.has(column)) return refusedLine(1, "there is no column \"" + std::string(column) + "\"");
    }
    for (std::size_t i = 1; i < rows->size(); ++i)
        table.m_rows.push_back({(*rows)[i].line, std::move((*rows)[i].cells)});
    return table;
}

bool NamedTable::has(std::string_view column) const {
    return std::any_of(m_titles.begin(), m_titles.end(), [&](const auto& title) { return sameName(title, column); });
}

std::string NamedTable::cell(std::size_t row, std::string_view column) const {
    const auto found =
        std::find_if(m_titles.begin(), m_titles.end(), [&](const auto& title) { return sameName(title, column); });
    return cellAt(row, static_cast<std::size_t>(found - m_titles.begin()));
}

std::string NamedTable::cellAt(std::size_t row, std::size_t column) const {
    const auto& cells = m_rows[row].cells;
    return column < std::min(cells.size(), m_titles.size()) ? cells[column] : std::string();
}

std::string NamedTable::word(std::size_t row, std::string_view column) const {
    return trimmed(cell(row, column));
}

}  // namespace korvex
