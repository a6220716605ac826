#pragma once

#include <memory>
#include <random>
#include <string>
#include <string_view>

#include "base/Property.h"
#include "cat/CatLink.h"
#include "platform/MSFlexGrid.h"
#include "platform/MsgBox.h"

namespace korvex {

/// One menu item between its cell in the grid and the radio.
///
///     send    EX042050;  (250 ms)  EX042;   answer EX042050;  -> as sent: "  no changes  "
///     read                         EX042;   answer EX042060;  -> into the cell, "  New Value  "
///
/// At the answered pace (CatLink) value and question leave in one go.
///
/// A radio that says nothing for 5 s is not waited for any longer; the cell stays as it is.
class ItemExchange {
public:
    ItemExchange(CatLink& link, MsgBox& msgBox, MSFlexGrid& grid) : m_link(link), m_msgBox(msgBox), m_grid(grid) {}

    /// Keys "S" and "R". The row is the item's own, the one that its number stands in; a row without a number does
    /// nothing. What was still waited for is given up.
    void send(int row, int col);
    void read(int row, int col);

    Property<std::string> commandSent;    ///< the command, UTF-8
    Property<std::string> valueAnswered;  ///< the value that the radio answered
    Property<std::string> answerNumber;   ///< another number at each answer; the change puts the value into its cell
    Property<std::string> valueCompared;  ///< the value that is compared with the answer

    Signal<> releaseEditor;  ///< an answer is about to go into the grid
    Signal<> newValue;       ///< the radio has another value than was in the cell, and the user has seen it

    bool running() const { return m_operation && m_operation->running(); }
    const std::string& itemNumber() const { return m_number; }  ///< "001"
    Signal<const Outcome&> ended;

private:
    bool choose(int row, int col);
    bool begin();
    void ask();
    Rest takeAnswer(std::string_view answer);
    void end(const Outcome& outcome);
    void showAnswer();
    void compare();

    CatLink& m_link;
    MsgBox& m_msgBox;
    MSFlexGrid& m_grid;
    std::minstd_rand m_random{std::random_device{}()};
    std::string m_number;  // of the item, "001"
    int m_row = 0;         // where the answer goes
    int m_col = 0;
    bool m_asked = false;  // the query is out
    std::unique_ptr<Operation> m_operation;
};

}  // namespace korvex
