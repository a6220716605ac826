#pragma once

#include <functional>
#include <set>
#include <string>

#include "base/Property.h"
#include "menu/DescriptionDatabase.h"
#include "menu/ItemExchange.h"
#include "menu/MenuColumns.h"
#include "menu/MenuDescriptions.h"
#include "menu/MenuReader.h"
#include "menu/MenuSheet.h"
#include "menu/MenuWriter.h"
#include "menu/SettingsHistory.h"
#include "platform/ChildProgram.h"
#include "platform/MSFlexGrid.h"
#include "platform/OwnersFiles.h"

namespace korvex {

/// What the Menu Manager needs of the rest.
struct MenuManagerNeeds {
    CatLink& link;
    Clock& clock;
    OwnersDesk desk;
    OwnersFiles& files;  ///< the menus'
    Database& database;
    const Property<bool>& visible;           ///< the window is to be seen
    std::string shippedDescriptions;         ///< the database that came with the program; empty: none
    std::function<std::string()> timeOfDay;  ///< TimeOfDay.h
    RunChildProgram runChildProgram;
};

/// What the Menu Manager's window decides: the grid of all menu items with their descriptions and four columns of
/// settings, which of these the user works on, and what goes between grid, radio, files and database.
class MenuManager {
public:
    explicit MenuManager(MenuManagerNeeds needs);

    /// Once, when the window is first needed. The grid is filled at the next tick.
    void Form_Load();

    /// Asks first when settings would be lost.
    void mnu_loadFlexgrid_Click();
    void Flexgrid_toGrid_Click();
    void mnu_readSettings_Click();
    void mnuRestore_Click();
    void mnu_exit_Click();
    /// Asks for the dialog with the title of the selected column; Command1_Click is its "Write Title".
    void mnu_editTitle_Click();
    void Command1_Click(const std::string& title);
    void mnu_undo_Click();
    void mnu_redo_Click();
    /// The selected column: into another one, from a menu file, into one.
    void copyColumnTo(int column);
    void mnu_loadColumn_Click();
    void mnu_saveColumn_Click();
    /// Selects the first empty settings column while none is selected.
    void selectEmptyColumn();
    /// Runs it when the grid has been filled: at once, or at a tick after Form_Load.
    void whenFilled(std::function<void()> run);
    /// Reads the radio and changes no column.
    void mnu_compareRadio_Click();
    void mnu_exportDescriptions_Click();
    void mnu_importDescriptions_Click();

    /// Only items whose setting in the selected column is not the radio's. A radio that has not been read is, if the
    /// port is open.
    void showOnlyUnlikeRadio(bool only);

    /// Whether settings that are not in the file may go: there are none, or the person is asked and lets them go.
    bool mayLoseEdits();
    Property<bool> modified{false};  ///< there are settings that are not in the file

    /// A column is being read from the radio.
    bool reading() const { return m_reader.running(); }
    /// The radio has been written to by others: what it told may not be so any more.
    void forgetRadio();

    /// The right mouse button on a cell: a settings column becomes the selected one and turns yellow.
    void FlexGrid1_RightClick(int column) { m_sheet.select(column); }
    /// A key's code, which for letters is the capital one; true when the key has been used up.
    bool FlexGrid1_KeyDown(int key);
    /// Whether the current cell is one that the cell editor opens on.
    bool isCurrentCellEditable() const;
    /// Empties the current cell if it can be edited.
    void clearCell();

    MSFlexGrid grid{192, 14};
    static int tableWidth();  ///< of all columns together, twips
    int SelectedSettingsColumn() const { return m_sheet.selectedColumn(); }

    Property<std::string> notice{" "};
    Property<bool> noticeWarns{false};

    MenuSheet& sheet() { return m_sheet; }
    SettingsHistory& history() { return m_history; }
    ItemExchange& exchange() { return m_exchange; }
    MenuWriter& writer() { return m_writer; }
    MenuReader& reader() { return m_reader; }
    DescriptionDatabase& database() { return m_database; }

    Signal<const std::string&> showTitleDialog;  ///< with the present title
    Signal<> storePlace;
    Signal<> hide;
    Signal<> buttonBackToNormal;  ///< the start window's Menu Manager button

private:
    bool columnChecked(const std::string& complaint);
    bool toldBusy(const std::string& title);
    void prepareGrid();
    void changed();
    void onCellChanged(int row, int col);
    void readRadio(int column, const std::string& caption);
    void placeAnswer(const std::string& item, const std::string& value);
    void onReadEnded(const Outcome& outcome);
    void readComplete();
    void tellCompared();
    bool mayWriteHidden();
    void onExchanged(const Outcome& outcome);
    void saveGrid();
    void stepped(const std::string& what, const std::optional<SettingsHistory::Done>& done);
    void tellDone(const std::string& what);
    void showLabel(const std::string& text, bool yellow);

    MenuManagerNeeds m_needs;
    CatLink& m_link;
    DescriptionDatabase m_database;
    MenuSheet m_sheet;
    SettingsHistory m_history;
    MenuColumns m_columns;
    MenuDescriptions m_descriptions;
    MenuReader m_reader;
    MenuWriter m_writer;
    ItemExchange m_exchange;
    int m_readColumn = 0;  // where a reading goes; 0: into no column
    int m_rowPointer = 0;  // grid row of the last answer that was placed
    bool m_filled = false;
    std::function<void()> m_whenFilled;
    std::set<std::string> m_placed;  // numbers of the items whose answers were
    Connections m_connections;
};

}  // namespace korvex
