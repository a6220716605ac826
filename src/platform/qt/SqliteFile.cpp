#include "platform/qt/SqliteFile.h"

#include <QFile>
#include <QFileInfo>
#include <QSqlError>
#include <QUrl>
#include <QVariant>
#include <utility>

namespace korvex {

namespace {

constexpr int busyMs = 300;  // how long another program's lock is waited for; the window stands still meanwhile
constexpr int cannotOpen = 14;
constexpr int notADatabase = 26;

struct Translation {
    int native;  // SQLite's result code
    int number;
    const char* sqlState;
    const char* what;
};

constexpr Translation translations[] = {
    {5, errors::PermissionDenied, "HYT00", "is locked by another program"},
    {6, errors::PermissionDenied, "HYT00", "is locked by another program"},
    {8, errors::PathFileAccess, "25006", "is write-protected"},
    {10, errors::DeviceIo, "58030", "cannot be read or written"},
    {11, errors::DeviceIo, "XX001", "is damaged"},
    {13, errors::DiskFull, "53100", "could not be written: the disk is full"},
    {cannotOpen, errors::PathFileAccess, "08001", "cannot be opened"},
    {notADatabase, errors::DeviceIo, "XX001", "is damaged or no database"},
};
constexpr Translation anythingElse = {0, errors::TypeMismatch, "HY000", "did not do what was asked"};

Translation translationOf(int native) {
    for (const auto& row : translations) {
        if (row.native == native) return row;
    }
    return anythingElse;
}

}  // namespace

QString SqliteFile::quoted(QString name) {
    return QLatin1Char('"') + name.replace(QLatin1Char('"'), QLatin1String("\"\"")) + QLatin1Char('"');
}

RuntimeError SqliteFile::note(int number, const std::string& text, int nativeNumber, const std::string& sqlState) {
    m_errors.push_back({nativeNumber, sqlState, text});
    return {number, text};
}

RuntimeError SqliteFile::translated(const QSqlError& error) {
    const int native = error.nativeErrorCode().toInt() & 0xFF;  // the rest only refines it
    const Translation row = translationOf(native);
    m_errors.push_back({native, row.sqlState, error.databaseText().toStdString()});
    return {row.number, "The database " + m_file.toStdString() + " " + row.what + "."};
}

RuntimeError SqliteFile::failureOf(const QSqlQuery& query) {
    return translated(query.lastError());
}

Failure SqliteFile::run(const QString& statement) {
    QSqlQuery query(m_database);
    if (query.exec(statement)) return {};
    return failureOf(query);
}

Failure SqliteFile::checkHead() {
    const std::string name = m_file.toStdString();
    const QFileInfo info(m_file);
    if (!info.exists()) return note(errors::FileNotFound, "File not found: " + name, cannotOpen, "08001");
    QFile file(m_file);
    if (!info.isFile() || !file.open(QIODevice::ReadOnly)) {
        return note(errors::PathFileAccess, "Path/File access error: " + name + " cannot be read", cannotOpen, "08001");
    }
    const QByteArray head = file.read(32);
    const QByteArray kind = head.mid(4, 15);
    if (head.startsWith(QByteArray("\0\1\0\0", 4)) && (kind == "Standard Jet DB" || kind == "Standard ACE DB")) {
        return note(
            errors::TypeMismatch,
            name + " is a database in the old desktop format (" + kind.toStdString() +
                "), which is no database of Korvex's. It was left as it is; move it away, and Korvex makes a new "
                "one at its next start, into which \"Import Descriptions...\" in the Menu Manager takes what the old "
                "one holds.",
            notADatabase, "08004");
    }
    if (!head.startsWith(QByteArray("SQLite format 3\0", 16))) {
        return note(errors::TypeMismatch,
                    name +
                        " is no database of Korvex. It was left as it is; move it away, and Korvex makes a new "
                        "database at its next start.",
                    notADatabase, "08004");
    }
    return {};
}

Failure SqliteFile::open() {
    static int count = 0;
    close();
    m_connectionName = QStringLiteral("korvex-%1").arg(++count);
    m_database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_connectionName);
    if (!m_database.isValid()) {
        return note(errors::FileNotFound, "Qt's driver for SQLite is not installed (Debian: libqt6sql6-sqlite).", 0,
                    "IM002");
    }
    // As a URI, because only so it can be said that no file is to be made.
    m_database.setConnectOptions(QStringLiteral("QSQLITE_OPEN_URI;QSQLITE_BUSY_TIMEOUT=%1").arg(busyMs));
    m_database.setDatabaseName(QString::fromLatin1(QUrl::fromLocalFile(m_file).toEncoded(QUrl::FullyEncoded)) +
                               QLatin1String("?mode=rw"));
    if (m_database.open()) return {};
    return translated(m_database.lastError());
}

Failure SqliteFile::checkInside() {
    QSqlQuery check(m_database);
    if (!check.exec(QStringLiteral("PRAGMA quick_check(1)")) || !check.next()) return failureOf(check);
    const QString verdict = check.value(0).toString();
    if (verdict == QLatin1String("ok")) return {};
    return note(errors::DeviceIo, "The database " + m_file.toStdString() + " is damaged: " + verdict.toStdString(), 11,
                "XX001");
}

Failure SqliteFile::checkPassword(const QString& password) {
    QSqlQuery gate(m_database);
    const bool asked = gate.exec(QStringLiteral("SELECT \"Kennwort\" FROM \"Kennwort\""));
    if (asked && gate.next() && gate.value(0).toString() == password) return {};
    return note(errors::PermissionDenied,
                m_file.toStdString() + " does not open with Korvex's password: it belongs to another program.", 23,
                "28000");
}

Failure SqliteFile::openChecked(const QString& file, const QString& password) {
    m_file = QFileInfo(file).absoluteFilePath();
    Failure failure = checkHead();
    if (!failure) failure = open();
    if (!failure) failure = checkInside();
    if (!failure) failure = checkPassword(password);
    if (failure) close();
    return failure;
}

Failure SqliteFile::make(const QString& emptyFile, const QString& password) {
    m_file = QFileInfo(emptyFile).absoluteFilePath();
    Failure failure = open();
    if (!failure) failure = run(QStringLiteral("CREATE TABLE \"Kennwort\" (\"Kennwort\" TEXT)"));
    if (failure) return failure;
    QSqlQuery insert(m_database);
    insert.prepare(QStringLiteral("INSERT INTO \"Kennwort\" VALUES (?)"));
    insert.addBindValue(password);
    if (!insert.exec()) return failureOf(insert);
    return {};
}

void SqliteFile::close() {
    if (m_connectionName.isEmpty()) return;
    m_database.close();
    m_database = QSqlDatabase();
    QSqlDatabase::removeDatabase(std::exchange(m_connectionName, QString()));
}

}  // namespace korvex
