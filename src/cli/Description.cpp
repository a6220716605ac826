#include "cli/Description.h"

#include <algorithm>
#include <map>
#include <memory>
#include <optional>

#include "menu/DescriptionTable.h"
#include "menu/MenuRows.h"
#include "platform/TextFile.h"

namespace korvex::cli {

namespace {

ExitCode failed(std::ostream& err, const std::string& why) {
    err << "korvexctl: " << why << "\n";
    return ExitCode::File;
}

Result<DatabaseTable> readTable(Database& database, const std::string& file) {
    const auto connection = database.makeConnection();
    if (auto failure = connection->Open(file, std::string(description::password))) return *failure;
    const auto recordset = connection->makeRecordset();
    if (auto failure = recordset->Open(std::string(description::query))) return *failure;
    DatabaseTable table;
    for (int k = 1; k <= recordset->RecordCount(); ++k) {
        if (auto failure = recordset->setAbsolutePosition(k)) return *failure;
        auto& record = table.records.emplace_back();
        for (int field = 0; field < recordset->FieldCount(); ++field) record.push_back(recordset->Field(field));
    }
    return table;
}

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
        if (std::max(number, name) < record.size() && isMenuNumber(record[number]))
            names[record[number]] = record[name];
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
            const auto table = readTable(database, databaseFile);
            *names = table ? namesIn(*table) : Names();
        }
        const auto found = (*names)->find(item);
        return found == (*names)->end() ? std::string() : onOneLine(found->second);
    };
}

ExitCode exportDescription(Database& database, const std::string& databaseFile, const std::string& file,
                           std::ostream& err) {
    const auto table = readTable(database, databaseFile);
    if (!table) return failed(err, table.error().text);
    if (const auto failure = textfile::write(file, descriptionText(*table))) return failed(err, failure->text);
    return ExitCode::Done;
}

ExitCode importDescription(Database& database, const std::string& databaseFile, const std::string& file,
                           std::ostream& err) {
    const auto content = textfile::read(file);
    if (!content) return failed(err, content.error().text);
    const auto table = parseDescription(*content);
    if (!table) return failed(err, file + ", " + table.error().text);
    const auto failure = database.writeTable(databaseFile, std::string(description::password), *table);
    return failure ? failed(err, failure->text) : ExitCode::Done;
}

}  // namespace korvex::cli
