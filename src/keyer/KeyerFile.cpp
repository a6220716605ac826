#include "keyer/KeyerFile.h"

#include <algorithm>
#include <optional>

#include "base/CodePage.h"
#include "base/Lines.h"

namespace korvex {

namespace {

constexpr char bar = '|';
constexpr std::size_t longestCell = 32'767;

/// What stands between one bar and the next; nothing when there is no next.
std::optional<std::string_view> takeField(std::string_view& rest) {
    const auto end = rest.find(bar);
    if (end == std::string_view::npos) return std::nullopt;
    const auto field = rest.substr(0, end);
    rest.remove_prefix(end + 1);
    return field;
}

std::optional<KeyerFileRow> takeRow(std::string_view& rest) {
    auto field = takeField(rest);
    if (!field) return std::nullopt;
    KeyerFileRow row;
    for (auto& cell : row) {
        if (!field) break;
        cell = *field;
        field = takeField(rest);  // behind the last cell: the line end
    }
    return row;
}

RuntimeError refused(const std::string& why) {
    return {errors::TypeMismatch, "This is not a keyer file: " + why};
}

bool tooLong(const KeyerFileRow& row) {
    return std::any_of(row.begin(), row.end(), [](const std::string& cell) { return cell.size() > longestCell; });
}

}  // namespace

std::string keyerFileText(const KeyerTable& table) {
    std::string text;
    for (int row = 0; row < KeyerTable::rows; ++row) {
        for (int column = 0; column < KeyerTable::columns; ++column) text += bar + table.wireText(row, column);
        text += bar;
        text += crLf;
    }
    text += bar;
    text += crLf;
    text += crLf;
    return text;
}

Result<std::vector<KeyerFileRow>> parseKeyerFile(std::string_view content) {
    std::vector<KeyerFileRow> rows;
    std::string_view rest = content;
    if (!takeField(rest)) return refused("it has no columns");
    while (rows.size() < KeyerTable::rows) {
        auto row = takeRow(rest);
        if (!row) break;
        const auto label = KeyerTable::readCommand(static_cast<int>(rows.size()));
        if (!rows.empty() && row->front() != label)
            return refused("where " + label + " should be there is another text");
        if (tooLong(*row)) return refused("a text is too long");
        rows.push_back(std::move(*row));
    }
    return rows;
}

void fillKeyerTable(KeyerTable& table, const std::vector<KeyerFileRow>& rows) {
    auto& grid = table.MSFlexGrid_k1;
    grid.setRedraw(false);
    for (int row = 0; row < KeyerTable::rows; ++row) {
        const auto index = static_cast<std::size_t>(row);
        for (int column = KeyerTable::textColumn; column < KeyerTable::columns; ++column) {
            const auto cell = static_cast<std::size_t>(column);
            grid.setTextMatrix(row, column, index < rows.size() ? utf8FromWire(rows[index][cell]) : "");
        }
    }
    if (!rows.empty()) grid.setTextMatrix(0, KeyerTable::labelColumn, utf8FromWire(rows.front().front()));
    grid.setRedraw(true);
}

}  // namespace korvex
