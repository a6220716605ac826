#include "keyer/KeyerFile.h"

#include <algorithm>
#include <optional>

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

std::string keyerFileText(const KeyerFileRows& rows) {
    std::string text;
    for (const auto& row : rows) {
        for (const auto& cell : row) text += bar + cell;
        text += bar;
        text += crLf;
    }
    text += bar;
    text += crLf;
    text += crLf;
    return text;
}

KeyerFileRows keyerFileRows(const KeyerTexts& texts) {
    KeyerFileRows rows = {keyerTitles};
    for (int memory = 1; memory <= keyerMemories; ++memory) {
        const WireText& text = keyerText(texts, memory);
        rows.push_back({keyerReadCommand(memory), text.bytes(), std::to_string(text.size())});
    }
    return rows;
}

Result<KeyerFileRows> parseKeyerFile(std::string_view content) {
    KeyerFileRows rows;
    std::string_view rest = content;
    if (!takeField(rest)) return refused("it has no columns");
    while (rows.size() < keyerMemories + 1) {
        auto row = takeRow(rest);
        if (!row) break;
        const auto label = keyerReadCommand(static_cast<int>(rows.size()));
        if (!rows.empty() && row->front() != label)
            return refused("where " + label + " should be there is another text");
        if (tooLong(*row)) return refused("a text is too long");
        rows.push_back(std::move(*row));
    }
    return rows;
}

}  // namespace korvex
