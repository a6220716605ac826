#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "menu/DescriptionMerge.h"
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
        std::string file;              ///< UTF-8, absolute
        std::string shippedFile = {};  ///< what came with the program; empty: nothing did
    };
    explicit DescriptionDatabase(Needs needs);

    /// The database is opened at the first tick after this, not by it; then `prepareGrid` is called, whether or not
    /// there was anything to fill the grid with.
    void Form_Load() { m_timer1->setEnabled(true); }
    std::function<void()> prepareGrid;

    /// The file, opened anew -> grid: another program may have written it, or put another in its place.
    void loadDescriptionGrid();
    /// The same, and settings that are not in the file stay in the grid. Gives back the keys (rowKeys) of those that
    /// cannot, because the file has no row for them any more.
    std::vector<std::string> loadKeepingEdits();
    /// The settings columns of the grid -> the file, opened anew; all or nothing. Only cells that were changed here are
    /// written, each into the row of its item, and the grid then shows what the file holds. Where another program has
    /// changed the same cells the user is asked. A failure has been told.
    bool saveDescriptionGrid();
    /// The settings columns of the grid hold what neither a load nor a save has seen.
    bool isModified() const { return !unsavedCells().empty(); }
    /// The keys of the rows that such cells are in.
    std::vector<std::string> unsavedRows() const;
    /// The first column of the rows that were loaded, the titles' first.
    const std::vector<std::string>& numbers() const { return m_numbers; }
    const std::string& file() const { return m_needs.file; }

    enum class UnloadReason { Program, SessionEnd, TaskManager };
    /// Whether the database window may go; when it may, the database is closed. At the session's end the user is asked.
    bool Form_QueryUnload(UnloadReason reason);

    bool isOpen() const { return m_recordset && m_recordset->isOpen(); }

private:
    struct UnsavedCell {
        std::string key;
        int column = 0;  // of the grid
        std::string text;
    };

    std::vector<UnsavedCell> unsavedCells() const;
    void Timer1_Timer();
    bool openAnew();
    bool openDescriptionDatabase();
    bool openDescriptionTable();
    int shownRecords() const;
    void copyToGrid();
    bool mayWrite(const SettingsMerge& merge);
    Failure write(const SettingsRows& rows);
    int savedColumns() const;
    std::vector<std::string> numbersInFile();
    SettingsRows rowsInFile();
    SettingsRows rowsInGrid() const;
    void beginCopy(const std::string& caption, int maximum);
    void endCopy();

    Needs m_needs;
    modADO m_ado;
    std::unique_ptr<DatabaseConnection> m_connection;
    std::unique_ptr<Recordset> m_recordset;
    std::vector<std::string> m_numbers;
    SettingsRows m_loaded;  // what grid and file had in common last
    std::unique_ptr<Timer> m_timer1;
    Connection m_tick;
};

}  // namespace korvex
