#pragma once

#include <QVariant>
#include <vector>

#include "platform/Database.h"
#include "platform/qt/SqliteFile.h"

namespace korvex {

class QtRecordset : public Recordset {
public:
    explicit QtRecordset(SqliteFile& file) : m_file(file) {}

    Failure Open(const std::string& source) override;
    bool isOpen() const override { return m_open; }
    void Close() override;
    Failure Requery() override;

    int RecordCount() const override { return static_cast<int>(m_records.size()); }
    int FieldCount() const override { return static_cast<int>(m_fields.size()); }
    Failure setAbsolutePosition(int record) override;
    std::string Field(int field) const override;
    void setField(int field, const std::string& text) override;
    Failure Update() override;

private:
    bool exists(int field) const { return m_position > 0 && field >= 0 && field < FieldCount(); }
    Failure fetch();
    QString updateStatement(const std::vector<std::size_t>& changed) const;

    SqliteFile& m_file;
    bool m_open = false;
    QString m_source;
    QString m_table;
    std::vector<QString> m_fields;
    std::vector<std::vector<QVariant>> m_records;  // as the file holds them
    std::vector<QVariant> m_edited;                // the present record with its changes
    int m_position = 0;                            // 0: on none
};

}  // namespace korvex
