#include "platform/qt/QtRecordset.h"

#include <QSqlError>
#include <QSqlField>
#include <QSqlRecord>

namespace korvex {

Failure QtRecordset::Open(const std::string& source) {
    m_source = QString::fromStdString(source);
    if (auto failure = fetch()) return failure;
    m_open = true;
    return {};
}

void QtRecordset::Close() {
    m_open = false;
    m_fields.clear();
    m_records.clear();
    m_edited.clear();
    m_position = 0;
}

Failure QtRecordset::Requery() {
    Close();  // also when fetching fails: nothing that was not written may be written later
    return fetch();
}

Failure QtRecordset::fetch() {
    QSqlQuery query = m_file.query();
    query.setForwardOnly(true);
    if (!query.exec(m_source)) return m_file.failureOf(query);
    Close();
    const QSqlRecord shape = query.record();
    for (int i = 0; i < shape.count(); ++i) m_fields.push_back(shape.fieldName(i));
    if (!shape.isEmpty()) m_table = shape.field(0).tableName();
    while (query.next()) {
        auto& record = m_records.emplace_back();
        for (int i = 0; i < shape.count(); ++i) record.push_back(query.value(i));
    }
    if (query.lastError().isValid()) {
        Close();
        return m_file.failureOf(query);
    }
    m_open = true;
    return m_records.empty() ? Failure() : setAbsolutePosition(1);
}

Failure QtRecordset::setAbsolutePosition(int record) {
    if (auto failure = Update()) return failure;
    if (record < 1 || record > RecordCount()) {
        return m_file.note(errors::InvalidPropertyValue, "There is no record " + std::to_string(record) + ".", 0,
                           "HY109");
    }
    m_position = record;
    m_edited = m_records[static_cast<std::size_t>(record) - 1];
    return {};
}

std::string QtRecordset::Field(int field) const {
    return exists(field) ? m_edited[static_cast<std::size_t>(field)].toString().toStdString() : std::string();
}

void QtRecordset::setField(int field, const std::string& text) {
    if (exists(field) && Field(field) != text) m_edited[static_cast<std::size_t>(field)] = QString::fromStdString(text);
}

QString QtRecordset::updateStatement(const std::vector<std::size_t>& changed) const {
    QString set;
    QString unchanged;
    for (const std::size_t i : changed) {
        const QString name = SqliteFile::quoted(m_fields[i]);
        set += (set.isEmpty() ? QLatin1String("") : QLatin1String(", ")) + name + QLatin1String(" = ?");
        unchanged += QLatin1String(" AND ") + name + QLatin1String(" IS ?");
    }
    return QStringLiteral("UPDATE %1 SET %2 WHERE %3 = ?%4")
        .arg(SqliteFile::quoted(m_table), set, SqliteFile::quoted(m_fields.front()), unchanged);
}

Failure QtRecordset::Update() {
    if (m_position == 0) return {};
    auto& stored = m_records[static_cast<std::size_t>(m_position) - 1];
    std::vector<std::size_t> changed;
    for (std::size_t i = 1; i < stored.size(); ++i) {
        if (stored[i] != m_edited[i]) changed.push_back(i);
    }
    if (changed.empty()) return {};
    QSqlQuery query = m_file.query();
    query.prepare(updateStatement(changed));
    for (const std::size_t i : changed) query.addBindValue(m_edited[i]);
    query.addBindValue(stored.front());
    for (const std::size_t i : changed) query.addBindValue(stored[i]);
    if (!query.exec()) return m_file.failureOf(query);
    if (query.numRowsAffected() != 1) {
        return m_file.note(errors::PermissionDenied,
                           "Another program has changed the database since it was read; nothing was written.", 0,
                           "40001");
    }
    stored = m_edited;
    return {};
}

}  // namespace korvex
