#include "menu/modADO.h"

namespace korvex {

bool modADO::openConnection(std::unique_ptr<DatabaseConnection>& connection, Database& database,
                            const std::string& dataSource, const std::string& password, bool showErrors) {
    if (!connection) connection = database.makeConnection();
    return done(connection->Open(dataSource, password), *connection, "OpenDatabase", showErrors);
}

bool modADO::openRecordset(std::unique_ptr<Recordset>& recordset, DatabaseConnection& connection,
                           const std::string& source, bool showErrors) {
    if (!recordset) recordset = connection.makeRecordset();
    if (recordset->isOpen()) recordset->Close();
    return done(recordset->Open(source), connection, "OpenRecordset", showErrors);
}

bool modADO::moveFirstIfAny(Recordset& recordset, DatabaseConnection& connection, bool showErrors) {
    if (recordset.RecordCount() == 0) return true;
    return done(recordset.setAbsolutePosition(1), connection, "MoveFirst", showErrors);
}

bool modADO::done(const Failure& failure, DatabaseConnection& connection, std::string_view title, bool showErrors) {
    if (failure && showErrors) reportDatabaseError(connection, *failure, title);
    return !failure;
}

void modADO::reportDatabaseError(DatabaseConnection& connection, const RuntimeError& error, std::string_view title) {
    std::string text = "Fehler= " + std::to_string(error.number) + "\r\n" + error.text + "\r\n\n";
    for (const auto& entry : connection.Errors) {
        text += "ADOErr: " + std::to_string(entry.number) + "   " + "JetErr: " + entry.sqlState + "\r\n";
        text += entry.description;
    }
    m_msgBox.exclamation(text, std::string(title));
    connection.Errors.clear();
}

}  // namespace korvex
