#include "menu/DescriptionTable.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>
#include <vector>

#include "base/NumberText.h"
#include "base/SheetText.h"
#include "base/TextEncoding.h"
#include "menu/DescriptionItems.h"
#include "menu/MenuRows.h"

namespace korvex {

namespace {

constexpr std::size_t mostRecords = 1000;
constexpr std::array<std::pair<char, char>, 4> escapes = {{{'\t', 't'}, {'\n', 'n'}, {'\r', 'r'}, {'\\', '\\'}}};

std::string escaped(std::string_view field) {
    std::string text;
    for (const char c : field) {
        const auto* escape = std::find_if(escapes.begin(), escapes.end(), [c](auto pair) { return pair.first == c; });
        if (escape == escapes.end()) {
            text += c;
        } else {
            text += {'\\', escape->second};
        }
    }
    return text;
}

/// Nothing when a backslash stands before something else than it may.
std::optional<std::string> unescaped(std::string_view text) {
    std::string field;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            field += text[i];
            continue;
        }
        const char letter = ++i < text.size() ? text[i] : '\0';
        const auto* escape =
            std::find_if(escapes.begin(), escapes.end(), [letter](auto pair) { return pair.second == letter; });
        if (escape == escapes.end()) return std::nullopt;
        field += escape->first;
    }
    return field;
}

/// As a cell that the tabs around it end, whatever it begins with.
std::string cellText(std::string_view field) {
    const std::string text = escaped(field);
    return text.starts_with('"') ? quotedCell(text) : text;
}

/// Empty cells at the end are a spreadsheet's; more than these are not.
bool fits(const std::vector<std::string>& cells) {
    const auto last = std::find_if(cells.rbegin(), cells.rend(), [](const auto& cell) { return !cell.empty(); });
    return cells.rend() - last <= description::textColumns + 1;
}

Result<NumberedRecord> parseRecord(SheetRow row) {
    if (!fits(row.cells)) return refusedLine(row.line, "there are more than 15 fields");
    const auto id = parseWhole(row.cells.front());
    if (!id || *id < 1) return refusedLine(row.line, "the first field is the record's number, 1 or more");
    NumberedRecord numbered{row.line, *id, std::move(row.cells)};
    numbered.fields.resize(description::textColumns + 1);
    for (auto& field : numbered.fields) {
        auto text = unescaped(field);
        if (!text) return refusedLine(row.line, "a backslash stands only before t, n, r and another backslash");
        field = std::move(*text);
    }
    auto& number = numbered.fields[description::numberField];
    number = menuNumber(number).value_or(number);
    return numbered;
}

Result<std::vector<NumberedRecord>> parseRecords(std::vector<SheetRow> rows) {
    std::vector<NumberedRecord> records;
    for (auto& row : rows) {
        if (records.size() == mostRecords) return refusedLine(row.line, "there are more than 1000 records");
        auto record = parseRecord(std::move(row));
        if (!record) return record.error();
        records.push_back(std::move(*record));
    }
    std::stable_sort(records.begin(), records.end(), [](const auto& a, const auto& b) { return a.id < b.id; });
    return records;
}

DatabaseTable emptyTable() {
    DatabaseTable table{std::string(description::tableName), {"ID"}, {}};
    for (int column = 1; column <= description::textColumns; ++column) {
        table.fields.push_back("Feld" + std::to_string(column));
    }
    return table;
}

}  // namespace

std::string descriptionText(const DatabaseTable& table) {
    std::string text =
        "# The descriptions of the FT-2000's menu items, a line a row of the Menu Manager, tabs between the fields.\n"
        "# The first field numbers the rows; the first row holds the titles. \\t \\n \\r \\\\ stand for what cannot "
        "be\n"
        "# written in a field. Each menu item, 001 to 149, has one row with its number.\n";
    for (const auto& record : table.records) {
        for (std::size_t i = 0; i < record.size(); ++i) text += (i == 0 ? "" : "\t") + cellText(record[i]);
        text += '\n';
    }
    return text;
}

Result<DatabaseTable> parseDescription(std::string_view content) {
    const auto text = utf8FromAnyEncoding(content);
    if (!text) return text.error();
    auto rows = readSheet(*text);
    if (!rows) return rows.error();
    auto records = parseRecords(std::move(*rows));
    if (!records) return records.error();
    if (auto failure = whyNoMenuTable(*records)) return *failure;
    DatabaseTable table = emptyTable();
    for (auto& record : *records) table.records.push_back(std::move(record.fields));
    return table;
}

}  // namespace korvex
