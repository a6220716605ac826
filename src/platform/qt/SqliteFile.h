#pragma once

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <string>
#include <vector>

#include "platform/Database.h"

namespace korvex {

/// One SQLite file as Qt opens it, with its failures as values. What fails is also noted in `errors`.
class SqliteFile {
public:
    explicit SqliteFile(std::vector<DatabaseError>& errors) : m_errors(errors) {}
    ~SqliteFile() { close(); }
    SqliteFile(const SqliteFile&) = delete;
    SqliteFile& operator=(const SqliteFile&) = delete;

    /// An existing file that is SQLite's, can be read, is undamaged and holds the password. Nothing is made or changed.
    Failure openChecked(const QString& file, const QString& password);
    /// An empty file becomes a database with the password.
    Failure make(const QString& emptyFile, const QString& password);
    void close();
    bool isOpen() const { return m_database.isOpen(); }

    QSqlQuery query() const { return QSqlQuery(m_database); }
    Failure run(const QString& statement);
    /// The failure of a query of this file.
    RuntimeError failureOf(const QSqlQuery& query);
    RuntimeError note(int number, const std::string& text, int nativeNumber, const std::string& sqlState);

    /// A name as statements hold it.
    static QString quoted(QString name);

private:
    Failure checkHead();
    Failure open();
    Failure checkInside();
    Failure checkPassword(const QString& password);
    RuntimeError translated(const QSqlError& error);

    std::vector<DatabaseError>& m_errors;
    QString m_file;
    QString m_connectionName;
    QSqlDatabase m_database;
};

}  // namespace korvex
