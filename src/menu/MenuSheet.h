#pragma once

#include <string>
#include <vector>

#include "base/Property.h"
#include "gridedit/clsFlexGridEdit.h"
#include "menu/SettingsDifferences.h"
#include "platform/MSFlexGrid.h"

namespace korvex {

/// How the Menu Manager's table is looked at: which settings column is selected, what is coloured and marked in the
/// others, and which rows are in sight. Nothing of it changes a setting, or what is saved or sent.
class MenuSheet {
public:
    static constexpr int selectedColour = clsFlexGridEdit::editableColour;  ///< yellow: these cells can be edited
    static constexpr int differentColour = 0xFFE8B0;                        ///< light blue

    /// `numbers`: the first column of the table's rows. Both must outlive the sheet.
    MenuSheet(MSFlexGrid& grid, const std::vector<std::string>& numbers);

    /// A settings column; others are passed over.
    void select(int column);
    int selectedColumn() const { return m_selected; }  ///< 0 until one is

    /// What the radio tells, as it does; until it is written to.
    void tellRadio(const std::string& item, const std::string& value) { m_radio[item] = value; }
    void forgetRadio() { m_radio.clear(); }
    bool knowsRadio() const { return !m_radio.empty(); }

    /// Which rows are in sight: those of items to which all of these apply that are true.
    Property<bool> onlyDiffering{false};
    Property<bool> onlyNamed{false};
    Property<bool> onlyUnlikeRadio{false};  ///< in the selected column

    /// Settings have changed: colours, marks and counts follow. A row stays in sight, so that nothing goes from under
    /// the hands of whoever is typing.
    void compare();
    /// The same, and the rows that are in sight follow, too.
    void refresh();

    int itemsHidden() const { return m_itemsHidden; }
    int unlikeRadio() const { return static_cast<int>(m_differences.unlikeRadio.size()); }
    /// What differs, and how many items are in sight, for a person.
    Property<std::string> counts;

private:
    void colour(int row, int column);
    bool isWanted(int itemRow, int nameColumn) const;
    void showRows();
    void tellCounts();

    MSFlexGrid& m_grid;
    const std::vector<std::string>& m_numbers;
    int m_selected = 0;
    int m_items = 0;
    int m_itemsHidden = 0;
    RadioValues m_radio;
    SettingsDifferences m_differences;
    Connections m_connections;
};

}  // namespace korvex
