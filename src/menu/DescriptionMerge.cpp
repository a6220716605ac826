#include "menu/DescriptionMerge.h"

#include <algorithm>
#include <set>
#include <utility>

#include "base/NumberText.h"
#include "menu/DescriptionTable.h"
#include "menu/MenuRows.h"

namespace korvex {

namespace {

using Record = std::vector<std::string>;

const std::string& fieldOf(const Record* record, std::size_t field) {
    static const std::string nothing;
    return record && field < record->size() ? (*record)[field] : nothing;
}

bool isSettings(std::size_t field) {
    return field >= description::firstSettingsField && field <= description::lastSettingsField;
}

std::map<std::string, const Record*> byKey(const DatabaseTable& table) {
    std::map<std::string, const Record*> records;
    const auto keys = rowKeys(table);
    for (std::size_t i = 0; i < keys.size(); ++i) records[keys[i]] = &table.records[i];
    return records;
}

const Record* find(const std::map<std::string, const Record*>& records, const std::string& key) {
    const auto found = records.find(key);
    return found == records.end() ? nullptr : found->second;
}

bool isSameNumber(const std::string& a, const std::string& b) {
    const auto number = parseWhole(a);
    return number && number == parseWhole(b);
}

/// The text that the field is to have.
std::string imported(const Record* present, const Record& record, std::size_t field, bool withSettings) {
    if (!isSettings(field)) return record[field];
    const std::string& before = fieldOf(present, field);
    return withSettings && !isSameNumber(before, record[field]) ? record[field] : before;
}

bool isFilled(const Record& record) {
    for (std::size_t field = 0; field < record.size(); ++field) {
        if (isSettings(field) && !record[field].empty()) return true;
    }
    return false;
}

/// What was changed here goes over what is in the file; whether that had been changed there, too.
bool mergeRow(const Record& base, const Record& mine, Record& file) {
    bool clashes = false;
    for (std::size_t i = 0; i < std::min({base.size(), mine.size(), file.size()}); ++i) {
        if (mine[i] == base[i]) continue;
        clashes = clashes || (file[i] != base[i] && file[i] != mine[i]);
        file[i] = mine[i];
    }
    return clashes;
}

void noteGoneRows(DescriptionImport& result, const std::map<std::string, const Record*>& before) {
    const auto keys = rowKeys(result.table);
    const std::set<std::string> now(keys.begin(), keys.end());
    for (const auto& [key, record] : before) {
        if (now.contains(key)) continue;
        ++result.goneRows;
        if (isFilled(*record)) result.goneSettings.push_back(key);
    }
}

}  // namespace

std::vector<std::string> rowKeys(const DatabaseTable& table) {
    std::vector<std::string> numbers;
    for (const auto& record : table.records) {
        const std::string& number = fieldOf(&record, description::numberField);
        numbers.push_back(menuNumber(number).value_or(number));
    }
    return rowKeys(numbers);
}

std::string rowNames(const std::vector<std::string>& keys) {
    std::string text;
    for (const auto& key : keys) text += (text.empty() ? "" : ", ") + (key.empty() ? "the titles" : key);
    return text;
}

bool hasSettings(const DatabaseTable& table) {
    const auto keys = rowKeys(table);
    for (std::size_t i = 0; i < keys.size(); ++i) {
        if (!keys[i].empty() && isFilled(table.records[i])) return true;
    }
    return false;
}

DescriptionImport importOver(const DatabaseTable& present, DatabaseTable table, bool withSettings) {
    const auto before = byKey(present);
    const bool takeSettings = withSettings || before.empty();
    DescriptionImport result{std::move(table), 0, 0, 0, {}};
    const auto keys = rowKeys(result.table);
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const Record* was = find(before, keys[i]);
        if (!was) ++result.newRows;
        auto& record = result.table.records[i];
        for (std::size_t field = description::numberField; field < record.size(); ++field) {
            record[field] = imported(was, record, field, takeSettings);
            if (record[field] != fieldOf(was, field)) ++result.changedCells;
        }
    }
    noteGoneRows(result, before);
    return result;
}

std::vector<FilledCell> cellsToFill(const DatabaseTable& own, const DatabaseTable& shipped) {
    std::vector<FilledCell> cells;
    const auto shippedRecords = byKey(shipped);
    const auto keys = rowKeys(own);
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const Record* source = find(shippedRecords, keys[i]);
        for (std::size_t field = description::numberField; field < own.records[i].size(); ++field) {
            const std::string& text = fieldOf(source, field);
            if (text.empty() || isSettings(field) || !own.records[i][field].empty()) continue;
            cells.push_back({static_cast<int>(i) + 1, static_cast<int>(field), text});
        }
    }
    return cells;
}

SettingsMerge mergeSettings(const SettingsRows& base, const SettingsRows& mine, const SettingsRows& file) {
    SettingsMerge merge{file, {}, {}};
    for (const auto& [key, cells] : mine) {
        const auto before = base.find(key);
        if (before == base.end() || before->second == cells) continue;
        const auto row = merge.rows.find(key);
        if (row == merge.rows.end()) {
            merge.gone.push_back(key);
        } else if (mergeRow(before->second, cells, row->second)) {
            merge.clashes.push_back(key);
        }
    }
    return merge;
}

}  // namespace korvex
