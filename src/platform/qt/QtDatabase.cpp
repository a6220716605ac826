#include "platform/qt/QtDatabase.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

#include "platform/qt/QtRecordset.h"
#include "platform/qt/SqliteFile.h"

namespace korvex {

namespace {

class QtConnection : public DatabaseConnection {
public:
    Failure Open(const std::string& file, const std::string& password) override {
        return m_file.openChecked(QString::fromStdString(file), QString::fromStdString(password));
    }
    bool isOpen() const override { return m_file.isOpen(); }
    std::unique_ptr<Recordset> makeRecordset() override { return std::make_unique<QtRecordset>(m_file); }
    Failure BeginTrans() override { return m_file.run(QStringLiteral("BEGIN IMMEDIATE")); }
    Failure CommitTrans() override { return m_file.run(QStringLiteral("COMMIT")); }
    void RollbackTrans() override { static_cast<void>(m_file.query().exec(QStringLiteral("ROLLBACK"))); }
    int mark() override {
        QSqlQuery query = m_file.query();
        return query.exec(QStringLiteral("PRAGMA user_version")) && query.next() ? query.value(0).toInt() : 0;
    }
    Failure setMark(int mark) override { return m_file.run(QStringLiteral("PRAGMA user_version = %1").arg(mark)); }

private:
    SqliteFile m_file{Errors};
};

QString createStatement(const DatabaseTable& table) {
    QString columns;
    for (const auto& field : table.fields) {
        const bool key = columns.isEmpty();
        if (!key) columns += QLatin1String(", ");
        columns += SqliteFile::quoted(QString::fromStdString(field));
        columns += key ? QLatin1String(" INTEGER PRIMARY KEY") : QLatin1String(" TEXT");
    }
    return QStringLiteral("CREATE TABLE %1 (%2)").arg(SqliteFile::quoted(QString::fromStdString(table.name)), columns);
}

Failure insertRecords(SqliteFile& file, const DatabaseTable& table) {
    QString places = QStringLiteral("?");
    for (std::size_t i = 1; i < table.fields.size(); ++i) places += QLatin1String(", ?");
    QSqlQuery insert = file.query();
    insert.prepare(QStringLiteral("INSERT INTO %1 VALUES (%2)")
                       .arg(SqliteFile::quoted(QString::fromStdString(table.name)), places));
    for (const auto& record : table.records) {
        for (std::size_t i = 0; i < record.size(); ++i) {
            insert.bindValue(static_cast<int>(i), QString::fromStdString(record[i]));
        }
        if (!insert.exec()) return file.failureOf(insert);
    }
    return {};
}

Failure replaceTable(SqliteFile& file, const DatabaseTable& table) {
    Failure failure = file.run(QStringLiteral("BEGIN IMMEDIATE"));
    if (failure) return failure;
    const QString name = SqliteFile::quoted(QString::fromStdString(table.name));
    failure = file.run(QStringLiteral("DROP TABLE IF EXISTS ") + name);
    if (!failure) failure = file.run(createStatement(table));
    if (!failure) failure = insertRecords(file, table);
    if (!failure) failure = file.run(QStringLiteral("COMMIT"));
    if (failure) static_cast<void>(file.query().exec(QStringLiteral("ROLLBACK")));
    return failure;
}

/// Made beside and renamed, so that the file is there as a whole or not at all.
Failure makeFile(const QString& path, const QString& password, const DatabaseTable& table) {
    const RuntimeError cannot{errors::PathFileAccess, "Path/File access error: " + path.toStdString()};
    QTemporaryFile beside(path + QLatin1String(".XXXXXX"));
    if (!beside.open()) return cannot;
    beside.close();
    std::vector<DatabaseError> errors;
    {
        SqliteFile file(errors);
        Failure failure = file.make(beside.fileName(), password);
        if (!failure) failure = replaceTable(file, table);
        if (failure) return failure;
    }
    beside.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
    if (!QFile::rename(beside.fileName(), path)) return cannot;
    beside.setAutoRemove(false);
    return {};
}

}  // namespace

std::unique_ptr<DatabaseConnection> QtDatabase::makeConnection() {
    return std::make_unique<QtConnection>();
}

Failure QtDatabase::writeTable(const std::string& file, const std::string& password, const DatabaseTable& table) {
    const QString path = QFileInfo(QString::fromStdString(file)).absoluteFilePath();
    const QFileInfo info(path);
    const QString word = QString::fromStdString(password);
    if (!info.exists() && !info.isSymLink()) return makeFile(path, word, table);
    std::vector<DatabaseError> errors;
    SqliteFile present(errors);
    if (auto failure = present.openChecked(path, word)) return failure;
    return replaceTable(present, table);
}

Failure QtDatabase::copyFile(const std::string& file, const std::string& password, const std::string& copy) {
    const QString path = QFileInfo(QString::fromStdString(file)).absoluteFilePath();
    const QString target = QFileInfo(QString::fromStdString(copy)).absoluteFilePath();
    const RuntimeError cannot{errors::PathFileAccess, "Path/File access error: " + target.toStdString()};
    if (QFileInfo::exists(target)) return cannot;
    std::vector<DatabaseError> errors;
    SqliteFile present(errors);
    if (auto failure = present.openChecked(path, QString::fromStdString(password))) return failure;
    QSqlQuery query = present.query();
    query.prepare(QStringLiteral("VACUUM INTO ?"));
    query.addBindValue(target);
    const bool done = query.exec() && QFile::setPermissions(target, QFile::permissions(path));
    if (done) return {};
    QFile::remove(target);
    return cannot;
}

}  // namespace korvex
