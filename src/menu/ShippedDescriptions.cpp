#include "menu/ShippedDescriptions.h"

#include <cstdint>

#include "menu/DescriptionMerge.h"
#include "menu/DescriptionTable.h"

namespace korvex {

namespace {

Result<DatabaseTable> readRecords(DatabaseConnection& connection) {
    const auto recordset = connection.makeRecordset();
    if (auto failure = recordset->Open(std::string(description::query))) return *failure;
    DatabaseTable table;
    for (int k = 1; k <= recordset->RecordCount(); ++k) {
        if (auto failure = recordset->setAbsolutePosition(k)) return *failure;
        auto& record = table.records.emplace_back();
        for (int field = 0; field < recordset->FieldCount(); ++field) record.push_back(recordset->Field(field));
    }
    return table;
}

/// Another number for every other table; never 0, which is the mark of a file that has seen none.
int markOf(const DatabaseTable& table) {
    std::uint32_t hash = 2166136261U;
    for (const char c : descriptionText(table)) hash = (hash ^ static_cast<unsigned char>(c)) * 16777619U;
    return static_cast<int>(hash >> 1) | 1;
}

Failure fill(Recordset& recordset, const std::vector<FilledCell>& cells) {
    for (const auto& cell : cells) {
        if (auto failure = recordset.setAbsolutePosition(cell.record)) return failure;
        recordset.setField(cell.field, cell.text);
    }
    return recordset.Update();
}

Failure write(DatabaseConnection& connection, const std::vector<FilledCell>& cells, int mark) {
    const auto recordset = connection.makeRecordset();
    if (auto failure = recordset->Open(std::string(description::query))) return failure;
    if (auto failure = connection.BeginTrans()) return failure;
    auto failure = fill(*recordset, cells);
    if (!failure) failure = connection.setMark(mark);
    if (!failure) failure = connection.CommitTrans();
    if (failure) connection.RollbackTrans();
    return failure;
}

}  // namespace

Result<DatabaseTable> readDescriptions(Database& database, const std::string& file) {
    const auto connection = database.makeConnection();
    if (auto failure = connection->Open(file, std::string(description::password))) return *failure;
    return readRecords(*connection);
}

int takeShippedDescriptions(Database& database, const std::string& ownFile, const std::string& shippedFile) {
    const auto shipped = readDescriptions(database, shippedFile);
    if (!shipped) return 0;
    const auto connection = database.makeConnection();
    if (connection->Open(ownFile, std::string(description::password))) return 0;
    const int mark = markOf(*shipped);
    if (connection->mark() == mark) return 0;
    const auto own = readRecords(*connection);
    if (!own) return 0;
    const auto cells = cellsToFill(*own, *shipped);
    return write(*connection, cells, mark) ? 0 : static_cast<int>(cells.size());
}

}  // namespace korvex
