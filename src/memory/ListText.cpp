#include "memory/ListText.h"

#include <algorithm>
#include <array>
#include <optional>

#include "base/NumberText.h"
#include "base/SheetText.h"
#include "memory/FieldText.h"

namespace korvex {

namespace {

using Line = std::vector<std::string>;
using Columns = std::vector<std::optional<MemoryField>>;

std::string quotedIfNeeded(const std::string& text) {
    return text.find_first_of("\t\r\n\"") == std::string::npos ? text : quotedCell(text);
}

/// A cell in quotes, as spreadsheets write what has a tab in it; a person may have typed a quote, too, and more behind
/// it.
std::string takeCell(std::string_view& rest) {
    std::string cell;
    if (rest.starts_with('"')) cell = takeQuotedCell(rest).value_or("");
    const auto end = std::min(rest.find_first_of("\t\r\n"), rest.size());
    cell += rest.substr(0, end);
    rest.remove_prefix(end);
    return cell;
}

std::vector<Line> linesOf(std::string_view text) {
    std::vector<Line> lines;
    while (!text.empty() && lines.size() <= MemoryList::rows + 1) {
        Line line{takeCell(text)};
        while (text.starts_with('\t')) {
            text.remove_prefix(1);
            line.push_back(takeCell(text));
        }
        text.remove_prefix(text.starts_with("\r\n") ? 2 : std::min<std::size_t>(text.size(), 1));
        lines.push_back(std::move(line));
    }
    while (!lines.empty() && lines.back() == Line{""}) lines.pop_back();
    return lines;
}

/// Letters and digits, lower case.
std::string nameOf(std::string_view heading) {
    std::string name;
    for (const char c : heading) {
        const char lower = asciiLower(c);
        if (isDigit(lower) || (lower >= 'a' && lower <= 'z')) name += lower;
    }
    return name;
}

std::optional<MemoryField> fieldCalled(const std::string& heading) {
    struct Alias {
        std::string_view name;
        MemoryField field;
    };
    constexpr std::array<Alias, 14> aliases = {{{"cha", MemoryField::Channel},
                                                {"mem", MemoryField::Channel},
                                                {"freq", MemoryField::Frequency},
                                                {"frequencyhz", MemoryField::Frequency},
                                                {"clar", MemoryField::ClarifierDirection},
                                                {"clarifierdirection", MemoryField::ClarifierDirection},
                                                {"offset", MemoryField::ClarifierOffset},
                                                {"rx", MemoryField::RxClarifier},
                                                {"tx", MemoryField::TxClarifier},
                                                {"ctcs", MemoryField::CtcssMode},
                                                {"ctcss", MemoryField::CtcssMode},
                                                {"tonehz", MemoryField::ToneNumber},
                                                {"remarks", MemoryField::Remark},
                                                {"comment", MemoryField::Remark}}};
    const std::string name = nameOf(heading);
    for (std::size_t i = 0; i < memoryFieldCount; ++i) {
        const auto field = static_cast<MemoryField>(i);
        if (name == nameOf(fieldName(field))) return field;
    }
    const auto* const alias =
        std::find_if(aliases.begin(), aliases.end(), [&](const Alias& one) { return one.name == name; });
    return alias == aliases.end() ? std::nullopt : std::optional(alias->field);
}

/// Nothing where the line does not tell what the columns are.
std::optional<Columns> headingsIn(const Line& line) {
    Columns columns;
    int known = 0;
    for (const auto& cell : line) {
        auto field = fieldCalled(cell);
        if (!field && !cell.empty() && cell != "0") return std::nullopt;
        const bool again = field && std::find(columns.begin(), columns.end(), field) != columns.end();
        if (again && field == MemoryField::ClarifierDirection) field = MemoryField::ClarifierOffset;  // "Clar", "Clar"
        if (cell == "0") field = MemoryField::FixedDigit;
        columns.push_back(field);
        known += field ? 1 : 0;
    }
    return known > 1 ? std::optional(columns) : std::nullopt;
}

Columns columnsFrom(std::size_t count, MemoryField field) {
    Columns columns;
    if (count == memoryFieldCount + 1) columns.emplace_back(std::nullopt);
    const bool all = count >= memoryFieldCount;
    // A channel's number is its row's: what is pasted beside it begins with the frequency.
    const auto first = all ? 0 : std::max<std::size_t>(static_cast<std::size_t>(field), 1);
    for (std::size_t i = first; i < memoryFieldCount; ++i) columns.emplace_back(static_cast<MemoryField>(i));
    return columns;
}

bool isBlank(const Line& line) {
    return std::all_of(line.begin(), line.end(),
                       [](const std::string& cell) { return cell.find_first_not_of(' ') == std::string::npos; });
}

/// Takes lines one after the other.
class Paste {
public:
    Paste(const MemoryList& list, Columns columns) : m_list(list), m_columns(std::move(columns)) {}

    void take(const Line& line, int row) {
        MemoryRow content = m_list.row(row);
        const std::size_t before = result.refused.size();
        if (isBlank(line) && tellsFrequency()) {
            content.cells = {};
        } else if (!isBlank(line)) {
            for (std::size_t i = 0; i < line.size(); ++i) takeCell(line[i], i, row, content);
            if (content.filled()) complete(content, row);
            if (!content.filled() && before == result.refused.size()) refuse(row, " has no frequency");
        }
        if (before == result.refused.size()) result.rows[row] = std::move(content);
    }
    void refuse(int row, const std::string& why) { result.refused.push_back("Row " + std::to_string(row) + why); }

    PastedRows result;

private:
    bool tellsFrequency() const {
        return std::find(m_columns.begin(), m_columns.end(), MemoryField::Frequency) != m_columns.end();
    }

    void takeCell(const std::string& cell, std::size_t column, int row, MemoryRow& content) {
        if (column >= m_columns.size()) {
            if (!cell.empty()) refuse(row, " has too many columns");
            return;
        }
        const auto field = m_columns[column];
        if (!field || field == MemoryField::Channel) return;
        const auto code = fieldFromText(*field, cell);
        if (code) {
            content[*field] = *code;
        } else {
            refuse(row, std::string(", ").append(fieldName(*field)) + ": \"" + cell + "\" " + code.error().text);
        }
    }

    const MemoryList& m_list;
    Columns m_columns;
};

}  // namespace

std::string rowsAsText(const std::vector<MemoryRow>& rows, bool readable, bool withHeadings) {
    std::string text;
    const auto addLine = [&text](const auto& cellOf) {
        for (std::size_t i = 0; i < memoryFieldCount; ++i) {
            if (i > 0) text += '\t';
            text += quotedIfNeeded(cellOf(static_cast<MemoryField>(i)));
        }
        text += '\n';
    };
    if (withHeadings) addLine([](MemoryField field) { return std::string(fieldName(field)); });
    for (const auto& row : rows) {
        addLine([&](MemoryField field) { return readable ? readableField(field, row[field]) : row[field]; });
    }
    return text;
}

bool isTable(std::string_view text) {
    while (text.ends_with('\n') || text.ends_with('\r')) text.remove_suffix(1);
    return text.find_first_of("\t\r\n") != std::string_view::npos;
}

PastedRows rowsFromText(const MemoryList& list, std::string_view text, int row, MemoryField field) {
    std::vector<Line> lines = linesOf(text);
    if (lines.empty()) return {};
    const auto headings = headingsIn(lines.front());
    if (headings) lines.erase(lines.begin());
    std::size_t widest = 0;
    for (const auto& line : lines) widest = std::max(widest, line.size());
    Paste paste(list, headings.value_or(columnsFrom(widest, field)));
    for (const auto& line : lines) {
        if (row > MemoryList::rows) {
            paste.refuse(row, " and what follows: the list ends with row 99");
            break;
        }
        paste.take(line, row++);
    }
    return std::move(paste.result);
}

void complete(MemoryRow& content, int row) {
    for (const auto& place : memoryLayout) {
        if (!content[place.field].empty() || place.field == MemoryField::Frequency) continue;
        if (place.field != MemoryField::Channel) content[place.field] = *fieldFromText(place.field, "");
    }
    content[MemoryField::Channel] = channelText(row);
}

}  // namespace korvex
