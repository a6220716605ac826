#pragma once

#include <functional>
#include <memory>
#include <string>

#include "menu/modADO.h"
#include "platform/Clock.h"
#include "platform/Database.h"
#include "platform/MSFlexGrid.h"
#include "platform/MsgBox.h"
#include "platform/ProgressWindow.h"

namespace korvex {

/// The description database and the Menu Manager's grid: opening at the first tick after the load, copying one into the
/// other, and when the database may be let go. It is the database window (frmMain) without its window, which nobody
/// ever sees.
class DescriptionDatabase {
public:
    struct Needs {
        Database& database;
        Clock& clock;
        MsgBox& msgBox;
        ProgressWindow& progress;
        MSFlexGrid& grid;
        std::string file;  ///< UTF-8, absolute
    };
    explicit DescriptionDatabase(Needs needs);

    /// The database is opened at the first tick after this, not by it; then `prepareGrid` is called, whether or not
    /// there was anything to fill the grid with.
    void Form_Load() { m_timer1->setEnabled(true); }
    std::function<void()> prepareGrid;

    /// Database -> grid. What is not open yet is opened first.
    void loadDescriptionGrid();
    /// The settings columns of the grid -> database, all or nothing. A failure has been told.
    bool saveDescriptionGrid();

    enum class UnloadReason { Program, SessionEnd, TaskManager };
    /// Whether the database window may go; when it may, the database is closed. At the session's end the user is asked.
    bool Form_QueryUnload(UnloadReason reason);

    bool isOpen() const { return m_recordset && m_recordset->isOpen(); }

private:
    void Timer1_Timer();
    bool openDescriptionDatabase();
    bool openDescriptionTable();
    void copyToGrid();
    Failure copyFromGrid();
    void goToFirstRecord();
    void beginCopy(const std::string& caption, int maximum);
    void endCopy();

    Needs m_needs;
    modADO m_ado;
    std::unique_ptr<DatabaseConnection> m_connection;
    std::unique_ptr<Recordset> m_recordset;
    std::unique_ptr<Timer> m_timer1;
    Connection m_tick;
};

}  // namespace korvex
