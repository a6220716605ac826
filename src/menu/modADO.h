#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/Database.h"
#include "platform/MsgBox.h"

namespace korvex {

/// Opening a database and telling what went wrong. Each procedure gives back whether all went well; with `showErrors` a
/// failure is told in a box, and it is over when the box is.
class modADO {
public:
    explicit modADO(MsgBox& msgBox) : m_msgBox(msgBox) {}

    /// Opens `connection`, which is made by `database` where there is none yet.
    bool openConnection(std::unique_ptr<DatabaseConnection>& connection, Database& database,
                        const std::string& dataSource, const std::string& password, bool showErrors);
    /// An open recordset is closed first.
    bool openRecordset(std::unique_ptr<Recordset>& recordset, DatabaseConnection& connection, const std::string& source,
                       bool showErrors);
    bool moveFirstIfAny(Recordset& recordset, DatabaseConnection& connection, bool showErrors);

    void reportDatabaseError(DatabaseConnection& connection, const RuntimeError& error, std::string_view title);

private:
    bool done(const Failure& failure, DatabaseConnection& connection, std::string_view title, bool showErrors);

    MsgBox& m_msgBox;
};

}  // namespace korvex
