#include "cli/Description.h"

#include <memory>

#include "menu/DescriptionTable.h"
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

}  // namespace

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
