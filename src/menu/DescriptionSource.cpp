#include "menu/DescriptionSource.h"

#include <filesystem>

#include "base/Printable.h"
#include "menu/DescriptionExchange.h"
#include "menu/DescriptionTable.h"

namespace korvex {

namespace {

constexpr std::string_view newerJetMark = "Standard ACE DB";
constexpr std::string_view sqliteMark{"SQLite format 3\0", 16};

/// Behind four characters that vary little.
bool isJet(std::string_view content) {
    constexpr std::size_t place = 4;
    if (content.size() < place) return false;
    content.remove_prefix(place);
    return content.starts_with("Standard Jet DB") || content.starts_with(newerJetMark);
}

std::string firstLine(const std::string& text) {
    return text.substr(0, text.find_first_of("\r\n"));
}

RuntimeError unreadable(const std::string& why) {
    return {errors::TypeMismatch, "the database cannot be read" + (why.empty() ? "" : ": " + printable(why))};
}

/// Jet leaves the pages of a database with a password as they are, its successor (.accdb) enciphers them.
RuntimeError withWordOfPassword(RuntimeError error, std::string_view content) {
    if (content.substr(0, 64).find(newerJetMark) != std::string_view::npos) {
        error.text += " (if it asks for a password: a copy without one can be read)";
    }
    return error;
}

/// As a table with tabs: what would break its rows is written as in ours.
Result<std::string> jetTable(const RunChildProgram& run, const std::string& file) {
    std::error_code error;
    const auto path = std::filesystem::absolute(file, error);  // no name that begins with "-"
    if (error) return unreadable(error.message());
    const ChildProgramOrder order = {"mdb-export",
                                     {"-e", "-H", "-d", "\t", path.string(), std::string(description::tableName)}};
    const auto end = run ? run(order) : RuntimeError{errors::FileNotFound, ""};
    if (!end && end.error().number == errors::FileNotFound) {
        return RuntimeError{errors::FileNotFound,
                            "it is a desktop database (Jet), which Korvex reads by way of mdb-export. Please install "
                            "the package mdbtools"};
    }
    if (!end) return unreadable(end.error().text);
    // A torn file ends it well, with the rows that it found; only what it said tells.
    if (end->code != 0 || !end->errors.empty()) return unreadable(firstLine(end->errors));
    return end->output;
}

}  // namespace

Result<DescriptionSource> descriptionsIn(Database& database, const RunChildProgram& run, const std::string& file,
                                         std::string_view content) {
    const auto taken = [](const Result<std::string>& text, bool isDatabase) -> Result<DescriptionSource> {
        if (!text) return text.error();
        auto table = parseDescription(*text);
        if (!table) return table.error();
        return DescriptionSource{std::move(*table), isDatabase};
    };
    if (content.starts_with(sqliteMark)) return taken(exportedDescriptions(database, file), true);
    if (isJet(content)) {
        const auto text = jetTable(run, file);
        return text ? taken(text, true) : withWordOfPassword(text.error(), content);
    }
    return taken(std::string(content), false);
}

}  // namespace korvex
