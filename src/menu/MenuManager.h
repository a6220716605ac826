#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/Property.h"
#include "menu/DescriptionDatabase.h"
#include "menu/ItemExchange.h"
#include "menu/MenuReader.h"
#include "menu/MenuWriter.h"
#include "platform/MSFlexGrid.h"

namespace korvex {

/// What the Menu Manager needs of the rest.
struct MenuManagerNeeds {
    CatLink& link;
    Clock& clock;
    MsgBox& msgBox;
    Database& database;
    const Property<bool>& visible;    ///< the window is to be seen
    std::string programFolder;        ///< UTF-8, without a slash at the end
    std::string shippedDescriptions;  ///< the database that came with the program; empty: none
};

/// What the Menu Manager's window decides: the grid of all menu items with their descriptions and four columns of
/// settings, which of these the user works on, and what goes between grid, radio and database.
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

    /// Whether settings that are not in the file may go: there are none, or the person is asked and lets them go.
    bool mayLoseEdits();

    /// A column is being read from the radio.
    bool reading() const { return m_reader.running(); }

    /// The right mouse button on a cell: a settings column becomes the selected one and turns yellow.
    void FlexGrid1_RightClick(int column);
    /// A key's code, which for letters is the capital one; true when the key has been used up.
    bool FlexGrid1_KeyDown(int key);
    /// Whether the current cell is one that the cell editor opens on.
    bool isCurrentCellEditable() const;

    MSFlexGrid grid{192, 14};
    /// 0 until the user selects one.
    int SelectedSettingsColumn() const { return m_selectedColumn; }

    Property<std::string> notice{" "};
    Property<bool> noticeWarns{false};

    ItemExchange& exchange() { return m_exchange; }
    MenuWriter& writer() { return m_writer; }
    MenuReader& reader() { return m_reader; }
    DescriptionDatabase& database() { return m_database; }

    Signal<const std::string&> showTitleDialog;  ///< with the present title
    Signal<> storePlace;
    Signal<> hide;
    Signal<> buttonBackToNormal;  ///< the start window's Menu Manager button

private:
    bool isSettingsColumn(int column) const;
    bool columnChecked(const std::string& complaint);
    bool toldBusy(const std::string& title);
    void prepareGrid();
    void placeAnswer(const std::string& item, const std::string& value);
    void onReadEnded(const Outcome& outcome);
    void readComplete();
    std::optional<std::vector<std::string>> linesOfColumn();
    int rowOfItem(const std::string& item, int from) const;
    void saveGrid();
    void showLabel(const std::string& text, bool yellow);

    MenuManagerNeeds m_needs;
    CatLink& m_link;
    DescriptionDatabase m_database;
    MenuReader m_reader;
    MenuWriter m_writer;
    ItemExchange m_exchange;
    int m_selectedColumn = 0;
    int m_readColumn = 0;  // the selected column when the read began
    int m_rowPointer = 0;  // grid row of the last answer that was placed
    int m_placedAnswers = 0;
    Connections m_connections;
};

}  // namespace korvex
