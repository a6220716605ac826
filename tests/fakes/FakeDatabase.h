#pragma once

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "platform/Database.h"

namespace korvex::fakes {

/// A database in memory: one table, whatever the query. What the test sets in `fails` and `failsAtRecord` goes wrong.
class FakeDatabase : public Database {
public:
    using Records = std::vector<std::vector<std::string>>;

    Records records;  ///< as the file holds them
    Failure fails;    ///< opening
    std::vector<DatabaseError> errors;
    int failsAtRecord = 0;  ///< writing this one
    int opened = 0;
    std::string file;  ///< the last that was opened
    std::string password;
    std::string copiedTo;
    int mark = 0;

    std::unique_ptr<DatabaseConnection> makeConnection() override { return std::make_unique<FakeConnection>(*this); }
    Failure writeTable(const std::string&, const std::string&, const DatabaseTable& table) override {
        if (!fails) records = table.records;
        return fails;
    }
    Failure copyFile(const std::string&, const std::string&, const std::string& copy) override {
        copiedTo = copy;
        return fails;
    }

private:
    class FakeRecordset : public Recordset {
    public:
        explicit FakeRecordset(FakeDatabase& database) : m_database(database) {}
        Failure Open(const std::string&) override { return Requery(); }
        bool isOpen() const override { return m_open; }
        void Close() override { m_open = false; }
        Failure Requery() override {
            m_open = true;
            m_position = 0;
            m_records = m_database.records;
            return {};
        }
        int RecordCount() const override { return static_cast<int>(m_records.size()); }
        int FieldCount() const override { return m_records.empty() ? 0 : static_cast<int>(m_records[0].size()); }
        Failure setAbsolutePosition(int record) override {
            if (auto failure = Update()) return failure;
            m_position = record;
            return {};
        }
        std::string Field(int field) const override { return m_records.at(at()).at(static_cast<std::size_t>(field)); }
        void setField(int field, const std::string& text) override {
            m_records.at(at()).at(static_cast<std::size_t>(field)) = text;
        }
        Failure Update() override {
            if (m_position == 0 || m_records[at()] == m_database.records[at()]) return {};
            if (m_position == m_database.failsAtRecord) return RuntimeError{errors::DiskFull, "Disk full"};
            m_database.records[at()] = m_records[at()];
            return {};
        }

    private:
        std::size_t at() const { return static_cast<std::size_t>(m_position) - 1; }
        FakeDatabase& m_database;
        Records m_records;
        bool m_open = false;
        int m_position = 0;
    };

    class FakeConnection : public DatabaseConnection {
    public:
        explicit FakeConnection(FakeDatabase& database) : m_database(database) {}
        Failure Open(const std::string& path, const std::string& word) override {
            m_database.file = path;
            m_database.password = word;
            Errors = m_database.errors;
            m_open = !m_database.fails;
            m_database.opened += m_open ? 1 : 0;
            return m_database.fails;
        }
        bool isOpen() const override { return m_open; }
        std::unique_ptr<Recordset> makeRecordset() override { return std::make_unique<FakeRecordset>(m_database); }
        Failure BeginTrans() override {
            m_before = m_database.records;
            return {};
        }
        Failure CommitTrans() override { return {}; }
        void RollbackTrans() override { m_database.records = m_before; }
        int mark() override { return m_database.mark; }
        Failure setMark(int mark) override {
            m_database.mark = mark;
            return {};
        }

    private:
        FakeDatabase& m_database;
        Records m_before;
        bool m_open = false;
    };
};

}  // namespace korvex::fakes
