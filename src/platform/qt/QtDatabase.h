#pragma once

#include "platform/Database.h"

namespace korvex {

/// Databases are SQLite files. Qt's driver is loaded when the first one is opened or made, not before.
class QtDatabase : public Database {
public:
    std::unique_ptr<DatabaseConnection> makeConnection() override;
    Failure writeTable(const std::string& file, const std::string& password, const DatabaseTable& table) override;
    Failure copyFile(const std::string& file, const std::string& password, const std::string& copy) override;
};

}  // namespace korvex
