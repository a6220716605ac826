#include "backup/MenuTitles.h"

#include <algorithm>
#include <map>
#include <memory>
#include <optional>
#include <string_view>

#include "menu/MenuRows.h"
#include "menu/ShippedDescriptions.h"

namespace korvex {

namespace {

using Names = std::map<std::string, std::string>;

/// The first record holds the titles of the columns. Continuation rows have no number, and no name of their own.
Names namesIn(const DatabaseTable& table) {
    Names names;
    if (table.records.empty()) return names;
    const auto& titles = table.records.front();
    const auto columnOf = [&titles](std::string_view title) {
        return static_cast<std::size_t>(std::find(titles.begin(), titles.end(), title) - titles.begin());
    };
    const std::size_t number = columnOf("Menu");
    const std::size_t name = columnOf("Name");
    for (const auto& record : table.records) {
        if (std::max(number, name) >= record.size()) continue;
        if (const auto item = menuNumber(record[number])) names[*item] = record[name];
    }
    return names;
}

/// One line, whatever was typed into the cell.
std::string onOneLine(std::string name) {
    std::replace_if(
        name.begin(), name.end(), [](char c) { return c >= 0 && c < ' '; }, ' ');
    return name;
}

}  // namespace

ItemTitles titlesFrom(Database& database, const std::string& databaseFile) {
    const auto names = std::make_shared<std::optional<Names>>();
    return [names, &database, databaseFile](const std::string& kind, const std::string& item) -> std::string {
        if (kind != "menu") return {};
        if (!*names) {
            const auto table = readDescriptions(database, databaseFile);
            *names = table ? namesIn(*table) : Names();
        }
        const auto found = (*names)->find(item);
        return found == (*names)->end() ? std::string() : onOneLine(found->second);
    };
}

}  // namespace korvex
