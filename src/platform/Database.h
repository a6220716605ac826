#pragma once

#include <memory>
#include <string>
#include <vector>

#include "base/RuntimeError.h"

namespace korvex {

/// What the database itself said about a failure.
struct DatabaseError {
    int number = 0;           ///< the database's own
    std::string sqlState;     ///< five characters, by kind of failure
    std::string description;  ///< UTF-8
};

/// The records of a query, fetched as a whole when it is opened: reading needs the file no more. Fields are counted
/// from 0, records from 1; a recordset with records stands on one of them. All text is UTF-8.
///
/// Writing is optimistic: a changed record is written when it is left, or by `Update`, and only if the file still holds
/// what was read from it.
class Recordset {
public:
    virtual ~Recordset() = default;

    virtual Failure Open(const std::string& source) = 0;
    virtual bool isOpen() const = 0;
    virtual void Close() = 0;
    /// Reads all records anew; changes that were not written are lost. After a failure it is closed.
    virtual Failure Requery() = 0;

    virtual int RecordCount() const = 0;
    virtual int FieldCount() const = 0;
    virtual Failure setAbsolutePosition(int record) = 0;
    virtual std::string Field(int field) const = 0;
    /// A value that the field already has changes nothing.
    virtual void setField(int field, const std::string& text) = 0;
    virtual Failure Update() = 0;
};

/// One opened database file. It must outlive its recordsets.
class DatabaseConnection {
public:
    virtual ~DatabaseConnection() = default;

    /// Opens what exists; never makes a file. The password is held against the one in the file: a gate against opening
    /// by accident, no encryption.
    virtual Failure Open(const std::string& file, const std::string& password) = 0;
    virtual bool isOpen() const = 0;
    virtual std::unique_ptr<Recordset> makeRecordset() = 0;

    /// What is written between the two reaches the file as a whole or not at all, also when the program or the machine
    /// dies.
    virtual Failure BeginTrans() = 0;
    virtual Failure CommitTrans() = 0;
    virtual void RollbackTrans() = 0;

    /// A number that the program leaves in the file; 0 in one that never got any.
    virtual int mark() = 0;
    virtual Failure setMark(int mark) = 0;

    std::vector<DatabaseError> Errors;  ///< since somebody cleared them
};

/// A table as plain text.
struct DatabaseTable {
    std::string name;
    std::vector<std::string> fields;  ///< the first holds whole numbers and is the key
    std::vector<std::vector<std::string>> records;
};

/// Where database connections come from.
class Database {
public:
    virtual ~Database() = default;

    virtual std::unique_ptr<DatabaseConnection> makeConnection() = 0;

    /// Makes the file with this one table; in a file that is there already the table is replaced, if it opens with the
    /// password. Either way the file is whole afterwards: the new one or the old one.
    virtual Failure writeTable(const std::string& file, const std::string& password, const DatabaseTable& table) = 0;

    /// The file as it is now, whole, under a name that is free and with the same permissions.
    virtual Failure copyFile(const std::string& file, const std::string& password, const std::string& copy) = 0;
};

}  // namespace korvex
