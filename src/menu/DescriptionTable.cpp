#include "menu/DescriptionTable.h"

#include <algorithm>
#include <array>
#include <optional>
#include <set>
#include <utility>

#include "base/CodePage.h"
#include "base/NumberText.h"

namespace korvex {

namespace {

constexpr std::size_t mostRecords = 1000;
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
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

std::string_view takeUpTo(std::string_view& rest, char end) {
    const auto at = rest.find(end);
    const auto taken = rest.substr(0, at);
    rest.remove_prefix(at == std::string_view::npos ? rest.size() : at + 1);
    return taken;
}

bool hasControls(std::string_view line) {
    return std::any_of(line.begin(), line.end(), [](char c) { return c != '\t' && c >= 0 && c < ' '; });
}

/// Why the line is no record; else the record.
Result<std::vector<std::string>> parseRecord(std::string_view line) {
    const auto refused = [](const char* why) { return RuntimeError{errors::TypeMismatch, why}; };
    if (!isUtf8(line)) return refused("this is not UTF-8");
    if (hasControls(line)) return refused("there are control characters");
    std::vector<std::string> record;
    bool more = true;
    while (more) {
        more = line.find('\t') != std::string_view::npos;
        auto field = unescaped(takeUpTo(line, '\t'));
        if (!field) return refused("a backslash stands only before t, n, r and another backslash");
        record.push_back(std::move(*field));
    }
    if (record.size() > description::textColumns + 1) return refused("there are more than 15 fields");
    if (const auto id = parseWhole(record.front()); !id || *id < 1) {
        return refused("the first field is the record's number, 1 or more");
    }
    record.resize(description::textColumns + 1);
    return record;
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
        "# written in a field.\n";
    for (const auto& record : table.records) {
        for (std::size_t i = 0; i < record.size(); ++i) text += (i == 0 ? "" : "\t") + escaped(record[i]);
        text += '\n';
    }
    return text;
}

Result<DatabaseTable> parseDescription(std::string_view text) {
    if (text.starts_with(byteOrderMark)) text.remove_prefix(byteOrderMark.size());
    DatabaseTable table = emptyTable();
    std::set<int> known;
    for (int number = 1; !text.empty(); ++number) {
        std::string_view line = takeUpTo(text, '\n');
        if (line.ends_with('\r')) line.remove_suffix(1);
        if (line.empty() || line.front() == '#') continue;
        auto record = parseRecord(line);
        const auto refused = [number](const std::string& why) {
            return RuntimeError{errors::TypeMismatch, "line " + std::to_string(number) + ": " + why};
        };
        if (!record) return refused(record.error().text);
        if (!known.insert(*parseWhole(record->front())).second) return refused("this record's number came before");
        if (table.records.size() == mostRecords) return refused("there are more than 1000 records");
        table.records.push_back(std::move(*record));
    }
    if (table.records.empty()) return RuntimeError{errors::TypeMismatch, "there is no record in it"};
    return table;
}

}  // namespace korvex
