#include "cli/Description.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <utility>

#include "menu/DescriptionMerge.h"
#include "menu/DescriptionTable.h"
#include "menu/MenuRows.h"
#include "menu/ShippedDescriptions.h"
#include "platform/TextFile.h"

namespace korvex::cli {

namespace {

namespace fs = std::filesystem;

ExitCode failed(std::ostream& err, const std::string& why) {
    err << "korvexctl: " << why << "\n";
    return ExitCode::File;
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
        if (std::max(number, name) >= record.size()) continue;
        if (const auto item = menuNumber(record[number])) names[*item] = record[name];
    }
    return names;
}

bool isThere(const std::string& file) {
    std::error_code ignored;
    return fs::symlink_status(file, ignored).type() != fs::file_type::not_found;
}

/// A name that is free: nothing that was put aside before is lost.
std::string nameOfCopy(const ImportOrder& order) {
    std::string stamp = order.timeOfDay;
    std::erase(stamp, ':');
    std::replace(stamp.begin(), stamp.end(), ' ', '-');
    const std::string name = order.database + ".before-import-" + stamp;
    std::string free = name;
    for (int more = 2; isThere(free); ++more) free = name + "-" + std::to_string(more);
    return free;
}

/// What was there before is put aside first; if that fails nothing is written.
Failure write(Database& database, const std::string& file, const DatabaseTable& table, const std::string& copy) {
    const std::string password(description::password);
    if (!copy.empty()) {
        if (auto failure = database.copyFile(file, password, copy)) return failure;
    }
    return database.writeTable(file, password, table);
}

std::string whatWasTaken(const ImportOrder& order, const DescriptionImport& import, const std::string& copy) {
    const auto rows = [](std::size_t count) { return std::to_string(count) + (count == 1 ? " row" : " rows"); };
    std::string text = order.table + ": " + rows(import.table.records.size()) + " taken, ";
    if (copy.empty()) return text + order.database + " is new\n";
    text += std::to_string(import.changedCells) + " cells changed in " + order.database + "\n";
    if (import.newRows > 0) text += rows(static_cast<std::size_t>(import.newRows)) + " were not there before\n";
    if (import.goneRows > 0) text += rows(static_cast<std::size_t>(import.goneRows)) + " are not there any more\n";
    if (!import.goneSettings.empty()) text += "gone with their settings: " + rowNames(import.goneSettings) + "\n";
    if (!order.withSettings) text += "the settings columns stay as they were (--with-settings takes them as well)\n";
    return text + "as it was before: " + copy + "\n";
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

ExitCode exportDescription(Database& database, const std::string& databaseFile, const std::string& file,
                           std::ostream& err, const Files& files) {
    const auto table = readDescriptions(database, databaseFile);
    if (!table) return failed(err, table.error().text);
    if (const auto failure = files.write(file, descriptionText(*table))) return failed(err, failure->text);
    return ExitCode::Done;
}

ExitCode importDescription(Database& database, const ImportOrder& order, std::ostream& out, std::ostream& err,
                           const Files& files) {
    const auto content = files.read(order.table);
    if (!content) return failed(err, content.error().text);
    auto table = parseDescription(*content);
    if (!table) return failed(err, order.table + ", " + table.error().text);
    const bool isNew = !isThere(order.database);
    const auto present = isNew ? DatabaseTable() : readDescriptions(database, order.database);
    if (!present) return failed(err, present.error().text);
    const auto import = importOver(*present, std::move(*table), order.withSettings);
    if (import.table.records == present->records) {
        out << order.table << ": nothing in it is new; " << order.database << " stays as it is\n";
        return ExitCode::Done;
    }
    const std::string copy = isNew ? "" : nameOfCopy(order);
    if (auto failure = write(database, order.database, import.table, copy)) return failed(err, failure->text);
    out << whatWasTaken(order, import, copy);
    return ExitCode::Done;
}

}  // namespace korvex::cli
