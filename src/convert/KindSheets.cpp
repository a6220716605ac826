#include "convert/KindSheets.h"

#include <algorithm>
#include <array>
#include <map>
#include <vector>

#include "bandstack/BandStackCells.h"
#include "bandstack/BandStackFile.h"
#include "base/CodePage.h"
#include "base/Lines.h"
#include "base/NumberText.h"
#include "base/SheetText.h"
#include "convert/ChannelWords.h"
#include "keyer/KeyerFile.h"
#include "memory/FieldText.h"
#include "menu/MenuFile.h"

namespace korvex {

namespace {

Result<std::string> wireOf(const std::string& cell, int line) {
    if (const auto character = firstInexpressible(cell)) {
        return refusedLine(line, "the radio does not have the character \"" + *character + "\"");
    }
    return wireFromUtf8(cell).value_or("");
}

// --- menu

constexpr std::size_t menuHead = 5;  // EX042

std::string valueIn(const std::string& command) {
    if (command.size() <= menuHead || !command.ends_with(';')) return {};
    return command.substr(menuHead, command.size() - menuHead - 1);
}

Result<Table> menuSheet(std::string_view content, const MenuTitles& titles) {
    const auto lines = menuFileLines(content);
    if (!lines) return lines.error();
    Table table{{"Item", "Name", "Value", "Command"}};
    for (std::size_t i = 0; i < lines->size(); ++i) {
        const std::string& line = (*lines)[i];
        if (line.empty()) continue;
        const std::string item = line.size() > menuHead ? line.substr(2, 3) : zeroPadded(static_cast<int>(i) + 1, 3);
        table.push_back({item, titles ? titles(item) : "", utf8FromWire(valueIn(line)), utf8FromWire(line)});
    }
    return table;
}

/// A number in as many characters as another one has: "5" for "+00" is "+05".
std::string inTheFormOf(const std::string& pattern, int number) {
    const bool isSigned = pattern.starts_with('+') || pattern.starts_with('-');
    const auto digits = static_cast<int>(pattern.size()) - (isSigned ? 1 : 0);
    const std::string text = zeroPadded(std::abs(number), digits);
    if (isSigned) return (number < 0 ? "-" : "+") + text;
    return number < 0 ? "-" + text : text;
}

/// What the row sets: the command as it is while the value says the same, else with the value in its form.
Result<std::string> menuCommand(const NamedTable& table, std::size_t row, int item) {
    const int line = table.line(row);
    const auto value = wireOf(table.word(row, "Value"), line);
    const auto command = wireOf(table.word(row, "Command"), line);
    if (!value) return value.error();
    if (!command) return command.error();
    const std::string before = valueIn(*command);
    if (*value == before || (value->empty() && *command == "?;")) return *command;
    if (value->empty()) return refusedLine(line, "there is no value");
    std::string text = *value;
    if (const auto number = parseWhole(*value); number && !before.empty()) {
        if (number == parseWhole(before)) return *command;
        text = inTheFormOf(before, *number);
    }
    if (!before.empty() && text.size() != before.size()) {
        return refusedLine(line, "\"" + *value + "\" does not have the form of \"" + before + "\"");
    }
    return "EX" + zeroPadded(item, 3) + text + ";";
}

RuntimeError refusedItem(int item) {
    return {errors::TypeMismatch, "item " + zeroPadded(item, 3) + ": no file can hold this command"};
}

Result<std::string> menuFile(std::string_view csv) {
    const auto table = NamedTable::read(csv, {"Item", "Value", "Command"});
    if (!table) return table.error();
    std::array<std::string, menuItemCount> lines;
    for (std::size_t row = 0; row < table->rows(); ++row) {
        const int item = parseWhole(table->word(row, "Item")).value_or(0);
        if (item < 1 || item > menuItemCount) return refusedLine(table->line(row), "there is no such menu item");
        auto command = menuCommand(*table, row, item);
        if (!command) return command.error();
        if (command->starts_with("EX") && command->substr(2, 3) != zeroPadded(item, 3)) {
            return refusedLine(table->line(row), "the command is that of another item");
        }
        std::string& place = lines.at(static_cast<std::size_t>(item) - 1);
        if (!place.empty()) return refusedLine(table->line(row), "the item stands in the table twice");
        place = std::move(*command);
    }
    std::string text;
    for (const auto& line : lines) text.append(line).append(crLf);
    const auto readAgain = menuFileLines(text);
    if (!readAgain) return readAgain.error();
    // A comma, a quote or a line end in a command would make other lines of it.
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (i < readAgain->size() && (*readAgain)[i] != lines[i]) return refusedItem(static_cast<int>(i) + 1);
    }
    return text;
}

// --- memories

constexpr std::array channelColumns = {
    MemoryField::Channel,         MemoryField::Frequency,   MemoryField::Mode,        MemoryField::ClarifierDirection,
    MemoryField::ClarifierOffset, MemoryField::RxClarifier, MemoryField::TxClarifier, MemoryField::CtcssMode,
    MemoryField::ToneNumber,      MemoryField::Shift,       MemoryField::FixedDigit,  MemoryField::Remark};

/// Figures stay plain: a point in them is a thousands separator somewhere.
std::string wordFor(MemoryField field, const std::string& code) {
    return utf8FromWire(codesOf(field) == nullptr ? code : readableField(field, code));
}

/// A code that its list does not have is read as it is.
Result<std::string> codeIn(const NamedTable& table, std::size_t row, MemoryField field) {
    const std::string word =
        field == MemoryField::Remark ? table.cell(row, fieldName(field)) : table.word(row, fieldName(field));
    const auto code = fieldFromText(field, word);
    if (field == MemoryField::Remark)
        return code ? wireOf(*code, table.line(row)) : refusedLine(table.line(row), code.error().text);
    if (code && !word.empty()) return *code;
    if (canStandIn(field, word)) return word;
    return refusedLine(table.line(row), std::string(fieldName(field)) + " cannot be \"" + word + "\"");
}

Result<Table> channelSheet(std::string_view kind, std::string_view content) {
    const auto channels = channelsIn(kind, content);
    if (!channels) return channels.error();
    Table table(1);
    for (const auto field : channelColumns) table[0].emplace_back(fieldName(field));
    for (const auto& record : *channels) {
        TableRow row;
        for (const auto field : channelColumns) row.push_back(wordFor(field, record[field]));
        table.push_back(std::move(row));
    }
    return table;
}

Result<MemoryRecord> channelIn(const NamedTable& table, std::size_t row) {
    MemoryRecord record;
    for (const auto field : channelColumns) {
        auto code = codeIn(table, row, field);
        if (!code) return code.error();
        record[field] = std::move(*code);
    }
    return record;
}

Result<std::string> channelFileOf(std::string_view kind, std::string_view csv) {
    std::vector<std::string_view> needed;
    for (const auto field : channelColumns) {
        if (field != MemoryField::Remark) needed.push_back(fieldName(field));
    }
    const auto table = NamedTable::read(csv, needed);
    if (!table) return table.error();
    std::map<int, MemoryRecord> channels;
    for (std::size_t row = 0; row < table->rows(); ++row) {
        const int channel = channelNamed(table->word(row, fieldName(MemoryField::Channel)));
        if (channel == 0) return refusedLine(table->line(row), "channels are numbered 1 to 99");
        if (channels.contains(channel)) return refusedLine(table->line(row), "the channel stands in the table twice");
        auto record = channelIn(*table, row);
        if (!record) return record.error();
        channels[channel] = std::move(*record);
    }
    return channelFile(kind, channels);
}

// --- band stack: a register a row, a query a column

Result<Table> bandStackSheet(std::string_view content) {
    const auto cells = parseBandStackText(content);
    if (!cells) return cells.error();
    Table table;
    for (int column = 0; column < BandStackCells::columns; ++column) {
        TableRow row{column == 0 ? "Register" : registerName(column)};
        for (int i = 0; i < cells->rows(); ++i)
            row.push_back(column == 0 && i == 0 ? "Band" : utf8FromWire(cells->at(i, column)));
        table.push_back(std::move(row));
    }
    return table;
}

/// The rows of the file are the columns behind "Register"; some have the same query.
Result<std::string> bandStackFile(std::string_view csv) {
    const auto table = NamedTable::read(csv, {"Register", "Band"});
    if (!table) return table.error();
    const std::size_t rows = table->titles().size() - 1;
    if (rows > BandStackCells::allRows) return refusedLine(1, "there are too many columns");
    BandStackCells cells(static_cast<int>(rows));
    for (std::size_t i = 1; i < rows; ++i) cells.set(static_cast<int>(i), 0, table->titles()[i + 1]);
    for (std::size_t row = 0; row < table->rows(); ++row) {
        int column = 1;
        while (column < BandStackCells::columns && registerName(column) != table->word(row, "Register")) ++column;
        if (column == BandStackCells::columns) return refusedLine(table->line(row), "there is no such register");
        for (std::size_t i = 0; i < rows; ++i) {
            const auto cell = wireOf(table->cellAt(row, i + 1), table->line(row));
            if (!cell) return cell.error();
            cells.set(static_cast<int>(i), column, *cell);
        }
    }
    std::string text = bandStackFileText(cells);
    if (const auto refused = parseBandStackText(text); !refused) return refused.error();
    return text;
}

// --- keyer

Result<Table> keyerSheet(std::string_view content) {
    const auto rows = parseKeyerFile(content);
    if (!rows) return rows.error();
    Table table{{"Memory", "Text"}};
    for (std::size_t i = 1; i < rows->size(); ++i) {
        table.push_back({std::to_string(i), utf8FromWire((*rows)[i].at(1))});
    }
    return table;
}

Result<std::string> keyerFile(std::string_view csv) {
    const auto table = NamedTable::read(csv, {"Memory", "Text"});
    if (!table) return table.error();
    KeyerTexts texts;
    for (std::size_t row = 0; row < table->rows(); ++row) {
        const int memory = parseWhole(table->word(row, "Memory")).value_or(0);
        if (memory < 1 || memory > keyerMemories) return refusedLine(table->line(row), "memories are numbered 1 to 5");
        const auto text = wireOf(table->cell(row, "Text"), table->line(row));
        if (!text) return text.error();
        keyerText(texts, memory) = WireText(*text);
        if (const auto why = whyNotStorable(WireText(*text)); !why.empty()) return refusedLine(table->line(row), why);
    }
    return keyerFileText(keyerFileRows(texts));
}

/// What makes a table of a kind's file, and a file of the table.
struct KindSheet {
    std::string_view kind;
    std::function<Result<Table>(std::string_view content, const MenuTitles& titles)> table;
    std::function<Result<std::string>(std::string_view csv)> file;
};

const KindSheet* sheetFor(std::string_view kind) {
    using Text = std::string_view;
    using Titles = MenuTitles;
    static const std::vector<KindSheet> all = {
        {"menu", menuSheet, menuFile},
        {"memory", [](Text content, const Titles&) { return channelSheet("memory", content); },
         [](Text csv) { return channelFileOf("memory", csv); }},
        {"list", [](Text content, const Titles&) { return channelSheet("list", content); },
         [](Text csv) { return channelFileOf("list", csv); }},
        {"bandstack", [](Text content, const Titles&) { return bandStackSheet(content); }, bandStackFile},
        {"keyer", [](Text content, const Titles&) { return keyerSheet(content); }, keyerFile},
    };
    const auto found = std::find_if(all.begin(), all.end(), [kind](const KindSheet& row) { return row.kind == kind; });
    return found == all.end() ? nullptr : &*found;
}

RuntimeError noSuchKind(std::string_view kind) {
    return {errors::InvalidPropertyValue, "no tables are made of files of the kind \"" + std::string(kind) + "\""};
}

}  // namespace

Result<Table> sheetOf(std::string_view kind, std::string_view content, const MenuTitles& titles) {
    const KindSheet* sheet = sheetFor(kind);
    return sheet == nullptr ? noSuchKind(kind) : sheet->table(content, titles);
}

Result<std::string> fileOf(std::string_view kind, std::string_view csv) {
    const KindSheet* sheet = sheetFor(kind);
    return sheet == nullptr ? noSuchKind(kind) : sheet->file(csv);
}

}  // namespace korvex
