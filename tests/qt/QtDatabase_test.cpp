#include "platform/qt/QtDatabase.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <filesystem>
#include <gtest/gtest.h>
#include <sstream>
#include <tuple>

#include "base/NumberText.h"
#include "cli/Description.h"
#include "fakes/ProgramBench.h"
#include "menu/DescriptionTable.h"
#include "menu/ShippedDescriptions.h"
#include "platform/TextFile.h"

namespace korvex {
namespace {

namespace fs = std::filesystem;

const std::string password(description::password);
const std::string shippedTable = SOURCE_DIR "/data/menu-description.tsv";

class QtDatabaseTest : public testing::Test {
protected:
    void SetUp() override {
        const auto table = parseDescription(*textfile::read(shippedTable));
        ASSERT_TRUE(table);
        const auto failure = database.writeTable(file, password, *table);
        ASSERT_FALSE(failure) << failure->text;
    }

    /// Another program on the same file.
    void run(const QString& statement) const {
        static int count = 0;
        const QString name = QStringLiteral("other-%1").arg(++count);
        {
            auto other = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
            other.setDatabaseName(QString::fromStdString(file));
            ASSERT_TRUE(other.open());
            QSqlQuery query(other);
            ASSERT_TRUE(query.exec(statement)) << query.lastError().text().toStdString();
        }
        QSqlDatabase::removeDatabase(name);
    }

    std::string field(int record, int number) { return field(record, number, file); }
    std::string field(int record, int number, const std::string& path) {
        const auto connection = database.makeConnection();
        if (const auto failure = connection->Open(path, password)) return failure->text;
        const auto records = connection->makeRecordset();
        if (records->Open(std::string(description::query)) || records->setAbsolutePosition(record)) return "failed";
        return records->Field(number);
    }

    struct Opened {
        std::unique_ptr<DatabaseConnection> connection;
        std::unique_ptr<Recordset> records;
    };
    Opened opened() {
        auto connection = database.makeConnection();
        EXPECT_FALSE(connection->Open(file, password));
        auto records = connection->makeRecordset();
        EXPECT_FALSE(records->Open(std::string(description::query)));
        return {std::move(connection), std::move(records)};
    }

    RuntimeError openFailure(const std::string& path) {
        const auto connection = database.makeConnection();
        const auto failure = connection->Open(path, password);
        EXPECT_FALSE(connection->isOpen());
        EXPECT_EQ(connection->Errors.empty(), !failure);
        return failure.value_or(RuntimeError{});
    }

    fakes::TemporaryFolder folder;
    std::string file = folder.file("Ä ?&#.mdb");
    QtDatabase database;
};

TEST_F(QtDatabaseTest, TheShippedTableIsWhole) {
    const auto [connection, records] = opened();
    EXPECT_EQ(records->RecordCount(), 190);
    EXPECT_EQ(records->FieldCount(), 15);
    EXPECT_EQ(records->Field(8), "Settings 1");
    int items = 0;
    for (int k = 2; k <= 190; ++k) {
        ASSERT_FALSE(records->setAbsolutePosition(k));
        const bool hasNumber = !records->Field(1).empty();
        if (!hasNumber) continue;
        EXPECT_EQ(records->Field(1), zeroPadded(++items, 3));
    }
    EXPECT_EQ(items, 149);
    EXPECT_TRUE(records->setAbsolutePosition(191));
}

TEST_F(QtDatabaseTest, WritesInOneTransactionOrNotAtAll) {
    const auto writeColumn = [](DatabaseConnection& connection, Recordset& records, const std::string& text) {
        Failure failure = connection.BeginTrans();
        for (int k = 1; k <= 190 && !failure; ++k) {
            failure = records.setAbsolutePosition(k);
            if (!failure) records.setField(9, text);
        }
        if (!failure) failure = records.Update();
        return failure;
    };
    {
        const auto [connection, records] = opened();
        ASSERT_FALSE(writeColumn(*connection, *records, "ü 1"));
        // The power fails here: what lies on the disk now is all that is left.
        const std::string crashed = folder.file("crashed.mdb");
        fs::copy_file(file, crashed);
        if (fs::exists(file + "-journal")) fs::copy_file(file + "-journal", crashed + "-journal");
        EXPECT_EQ(field(190, 9, crashed), "");
        ASSERT_FALSE(connection->CommitTrans());
    }
    EXPECT_EQ(field(190, 9), "ü 1");
    EXPECT_EQ(field(190, 8), "");

    run(
        QStringLiteral("CREATE TRIGGER full BEFORE UPDATE ON [Erste Tabelle] WHEN NEW.ID = 100 "
                       "BEGIN SELECT RAISE(ABORT, 'no more'); END"));
    const auto [connection, records] = opened();
    EXPECT_TRUE(writeColumn(*connection, *records, "2"));
    EXPECT_EQ(connection->Errors.at(0).description, "no more");
    connection->RollbackTrans();
    EXPECT_EQ(field(1, 9), "ü 1");
    ASSERT_FALSE(records->Requery());
    EXPECT_EQ(records->Field(9), "ü 1");
}

TEST_F(QtDatabaseTest, ARecordThatAnotherProgramChangedIsNotOverwritten) {
    const auto [connection, records] = opened();
    run(QStringLiteral("UPDATE [Erste Tabelle] SET Feld8 = 'theirs' WHERE ID = 2"));
    ASSERT_FALSE(records->setAbsolutePosition(2));
    records->setField(8, "mine");
    const auto failure = records->Update();
    ASSERT_TRUE(failure);
    EXPECT_EQ(connection->Errors.back().sqlState, "40001");
    EXPECT_EQ(field(2, 8), "theirs");
}

TEST_F(QtDatabaseTest, WhatIsNotItsOwnIsRefusedAndLeftAlone) {
    const std::string jet("\0\1\0\0Standard Jet DB\0\1\2\3 and more", 32);
    const std::string good = fakes::fileContent(file);
    const std::vector<std::tuple<std::string, std::string, std::string>> files = {
        {"jet.mdb", jet, "Standard Jet DB"},
        {"empty.mdb", "", "no database of Korvex"},
        {"text.mdb", "EX0011;\r\n", "no database of Korvex"},
        {"cut.mdb", good.substr(0, 3000), "damaged"},
        {"scratched.mdb", good.substr(0, 4100) + std::string(9000, 'x') + good.substr(13'100), "damaged"},
    };
    std::ostringstream said;
    for (const auto& [name, content, part] : files) {
        const std::string path = folder.file(name);
        fakes::writeFile(path, content);
        EXPECT_NE(openFailure(path).text.find(part), std::string::npos) << openFailure(path).text;
        EXPECT_EQ(cli::importDescription(database, {path, shippedTable}, said, said), cli::ExitCode::File);
        EXPECT_EQ(fakes::fileContent(path), content);
        // Nor is any of them a table.
        EXPECT_EQ(cli::importDescription(database, {file, path}, said, said), cli::ExitCode::File);
    }
    EXPECT_EQ(openFailure(folder.file("missing.mdb")).number, errors::FileNotFound);
    EXPECT_FALSE(fs::exists(folder.file("missing.mdb")));
    EXPECT_EQ(openFailure(folder.path()).number, errors::PathFileAccess);
    EXPECT_EQ(fakes::fileContent(file), good);

    run(QStringLiteral("UPDATE Kennwort SET Kennwort = 'other'"));
    EXPECT_EQ(openFailure(file).number, errors::PermissionDenied);
}

TEST_F(QtDatabaseTest, AFileThatAnotherProgramHoldsIsLocked) {
    auto other = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("holder"));
    other.setDatabaseName(QString::fromStdString(file));
    ASSERT_TRUE(other.open());
    other.exec(QStringLiteral("BEGIN EXCLUSIVE"));
    const RuntimeError error = openFailure(file);
    EXPECT_EQ(error.number, errors::PermissionDenied);
    EXPECT_NE(error.text.find("locked by another program"), std::string::npos);
    other = QSqlDatabase();
    QSqlDatabase::removeDatabase(QStringLiteral("holder"));
}

TEST_F(QtDatabaseTest, ExportAndImportKeepWhatTheOwnerFilledIn) {
    std::ostringstream said;
    const std::string table = folder.file("table.tsv");
    const auto import = [&](bool withSettings) {
        said.str("");
        return cli::importDescription(database, {file, table, withSettings, "2026-11-23 14:08:21"}, said, said);
    };
    run(QStringLiteral("UPDATE [Erste Tabelle] SET Feld8 = '0300' WHERE ID = 2"));
    run(QStringLiteral("PRAGMA user_version = 77"));
    fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(cli::exportDescription(database, file, table, said), cli::ExitCode::Done);
    EXPECT_EQ(import(false), cli::ExitCode::Done);
    EXPECT_NE(said.str().find("nothing in it is new"), std::string::npos);
    std::string text = fakes::fileContent(table);
    const std::string row = "2\t001\t\t\t\t\t\t\t0300";
    text.replace(text.find(row), row.size(), "2\t1\tAGC\tFast\tDelay\t\t\t\t0500");
    fakes::writeFile(table, text);
    EXPECT_EQ(import(false), cli::ExitCode::Done);
    const std::string copy = file + ".before-import-2026-11-23-140821";
    EXPECT_EQ(said.str(), table + ": 190 rows taken, 3 cells changed in " + file +
                              "\nthe settings columns stay as they were (--with-settings takes them as well)\n"
                              "as it was before: " +
                              copy + "\n");
    EXPECT_EQ(field(2, 1) + field(2, 2) + field(2, 8), "001AGC0300");
    EXPECT_EQ(field(2, 2, copy) + field(2, 8, copy), "0300");
    EXPECT_EQ(fs::status(copy).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(import(true), cli::ExitCode::Done);
    EXPECT_EQ(field(2, 8), "0500");
    EXPECT_EQ(field(2, 8, copy + "-2"), "0300");  // the first copy stays what it was
    EXPECT_EQ(field(2, 2, copy), "");
    // Where nothing can be put aside nothing is written.
    fakes::writeFile(table, text.replace(text.find("Delay"), 5, "Pause"));
    EXPECT_TRUE(database.copyFile(file, password, copy));
    EXPECT_TRUE(database.copyFile(file, password, folder.file("no/such")));
    EXPECT_EQ(field(2, 2, copy), "");
    EXPECT_EQ(cli::exportDescription(database, file, folder.file("no/such"), said), cli::ExitCode::File);
    EXPECT_EQ(cli::exportDescription(database, folder.file("none"), table, said), cli::ExitCode::File);
}

TEST_F(QtDatabaseTest, NewShippedDescriptionsFillOnceWhatTheOwnerLeftEmpty) {
    const std::string shipped = folder.file("shipped.mdb");
    DatabaseTable table = *parseDescription(*textfile::read(shippedTable));
    run(QStringLiteral("UPDATE [Erste Tabelle] SET Feld3 = 'mine' WHERE ID = 2"));
    run(QStringLiteral("DELETE FROM [Erste Tabelle] WHERE Feld1 = '' AND ID > 1"));
    EXPECT_EQ(takeShippedDescriptions(database, file, shipped), 0);  // there is none
    for (const std::size_t record : {1U, 2U, 26U}) table.records[record][3] = "shipped";
    table.records[1][8] = "0300";
    ASSERT_FALSE(database.writeTable(shipped, password, table));
    EXPECT_EQ(takeShippedDescriptions(database, file, shipped), 1);
    EXPECT_EQ(field(2, 3) + field(2, 8), "mine");
    EXPECT_EQ(field(21, 1) + field(21, 3), "020CW memory 1 type");
    EXPECT_EQ(field(3, 1) + field(3, 3), "002shipped");
    run(QStringLiteral("UPDATE [Erste Tabelle] SET Feld3 = '' WHERE Feld1 = '002'"));
    EXPECT_EQ(takeShippedDescriptions(database, file, shipped), 0);  // the owner emptied it
    table.records[2][4] = "newer";
    ASSERT_FALSE(database.writeTable(shipped, password, table));
    EXPECT_EQ(takeShippedDescriptions(database, file, shipped), 2);
    EXPECT_EQ(field(3, 4), "newer");
    EXPECT_EQ(takeShippedDescriptions(database, shipped, folder.file("none")), 0);
}

}  // namespace
}  // namespace korvex
