#include "menu/DescriptionDatabase.h"

#include <algorithm>
#include <utility>

#include "menu/DescriptionTable.h"

namespace korvex {

namespace {

constexpr int firstSavedField = 8;
constexpr int unsavedFieldsAtEnd = 3;  // the last saved field is the number of fields less this
constexpr std::string_view executableName = "korvex";

}  // namespace

DescriptionDatabase::DescriptionDatabase(Needs needs)
    : m_needs(std::move(needs)), m_ado(m_needs.msgBox), m_timer1(m_needs.clock.makeTimer()) {
    m_timer1->setInterval(50);
    m_tick = m_timer1->tick.connect([this] { Timer1_Timer(); });
}

void DescriptionDatabase::Timer1_Timer() {
    if (m_needs.progress.visible) return;  // a transfer shows its progress there; the database can wait
    // Stopped first: a report is a box, and ticks come while it is open.
    m_timer1->setEnabled(false);
    loadDescriptionGrid();
    if (prepareGrid) prepareGrid();
}

bool DescriptionDatabase::openDescriptionDatabase() {
    if (m_connection && m_connection->isOpen()) return true;
    return m_ado.openConnection(m_connection, m_needs.database, m_needs.file, std::string(description::password), true);
}

bool DescriptionDatabase::openDescriptionTable() {
    if (isOpen()) return true;
    if (!m_ado.openRecordset(m_recordset, *m_connection, std::string(description::query), true)) return false;
    return m_ado.moveFirstIfAny(*m_recordset, *m_connection, true);
}

void DescriptionDatabase::loadDescriptionGrid() {
    if (openDescriptionDatabase() && openDescriptionTable()) copyToGrid();
}

void DescriptionDatabase::copyToGrid() {
    beginCopy("Loading Datafile", 2600);
    const int records = std::min(m_recordset->RecordCount(), description::recordCount);
    for (int k = 1; k <= records && !m_recordset->setAbsolutePosition(k); ++k) {
        for (int field = 1; field < m_recordset->FieldCount(); ++field) {
            m_needs.grid.setTextMatrix(k - 1, field - 1, m_recordset->Field(field));
            m_needs.progress.value = m_needs.progress.value + 1;
        }
    }
    goToFirstRecord();
    endCopy();
}

bool DescriptionDatabase::saveDescriptionGrid() {
    if (!isOpen()) {
        m_needs.msgBox.exclamation("The description database is not open; nothing was saved.", "Saving Datafile");
        return false;
    }
    beginCopy("Saving Datafile", 1000);
    const Failure failure = copyFromGrid();
    if (failure) {
        m_connection->RollbackTrans();
        // What was written before the failure is not in the file: the records are read anew.
        static_cast<void>(m_recordset->Requery());
    }
    goToFirstRecord();
    endCopy();
    if (failure) m_ado.reportDatabaseError(*m_connection, *failure, "Saving Datafile");
    return !failure;
}

Failure DescriptionDatabase::copyFromGrid() {
    if (auto failure = m_connection->BeginTrans()) return failure;
    const int records = std::min(m_recordset->RecordCount(), description::recordCount);
    // A column that the grid has not got must not empty its field.
    const int lastField = std::min(m_recordset->FieldCount() - unsavedFieldsAtEnd, m_needs.grid.Cols());
    for (int k = 1; k <= records; ++k) {
        if (auto failure = m_recordset->setAbsolutePosition(k)) return failure;
        for (int field = firstSavedField; field <= lastField; ++field) {
            m_recordset->setField(field, m_needs.grid.TextMatrix(k - 1, field - 1));
            m_needs.progress.value = m_needs.progress.value + 1;
        }
    }
    if (auto failure = m_recordset->Update()) return failure;
    return m_connection->CommitTrans();
}

void DescriptionDatabase::goToFirstRecord() {
    if (m_recordset->RecordCount() > 0) static_cast<void>(m_recordset->setAbsolutePosition(1));
}

void DescriptionDatabase::beginCopy(const std::string& caption, int maximum) {
    m_needs.progress.caption = caption;
    m_needs.progress.maximum = maximum;
    m_needs.progress.value = 1;
    m_needs.progress.show();
    m_needs.grid.setRedraw(false);
}

void DescriptionDatabase::endCopy() {
    m_needs.progress.hide();
    m_needs.grid.setRedraw(true);
}

bool DescriptionDatabase::Form_QueryUnload(UnloadReason reason) {
    const bool open = m_connection && m_connection->isOpen();
    if (open && reason == UnloadReason::SessionEnd) {
        const auto answer =
            m_needs.msgBox.show({"Ihre zuletzt geänderten oder neu eingegebenen Daten\r\n"
                                 "sind möglicherweise noch nicht gespeichert !\n"
                                 "Wollen Sie Windows trotzdem beenden?",
                                 std::string(executableName), MsgIcon::Question, MsgButtons::YesNo});
        return answer == MsgAnswer::Yes;
    }
    if (open && reason != UnloadReason::TaskManager) return false;
    m_recordset.reset();
    m_connection.reset();
    return true;
}

}  // namespace korvex
