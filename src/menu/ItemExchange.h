#pragma once

#include <memory>
#include <random>
#include <string>

#include "base/Property.h"
#include "cat/AnswerPatience.h"
#include "cat/CatLink.h"
#include "platform/Clock.h"
#include "platform/MSFlexGrid.h"
#include "platform/MsgBox.h"
#include "terminal/TransferEnd.h"

namespace korvex {

/// One menu item between the grid's current cell and the radio. A continuation row stands for its item's row.
///
///     send    EX042050;  (250 ms)  EX042;   answer EX042050;  -> as sent: "  no changes  "
///     read                         EX042;   answer EX042060;  -> into the cell, "  New Value  "
///
/// A radio that says nothing for 5 s is not waited for any longer; the cell stays as it is.
class ItemExchange {
public:
    ItemExchange(CatLink& link, Clock& clock, MsgBox& msgBox, MSFlexGrid& grid);

    void send();  ///< key "S"
    void read();  ///< key "R"

    Property<std::string> Text1;  ///< the command, UTF-8
    Property<std::string> Text2;  ///< the value that the radio answered
    Property<std::string> Text3;  ///< another number at each answer; the change puts the value into its cell
    Property<std::string> Text7;  ///< the value that is compared with the answer

    Signal<> releaseEditor;  ///< an answer is about to go into the grid
    Signal<> newValue;       ///< the radio has another value than was in the cell, and the user has seen it

    bool running() const { return m_waiting || m_timer2->Enabled(); }
    const std::string& itemNumber() const { return m_number; }  ///< "001"
    Signal<const Outcome&> ended;

private:
    bool choose();
    void ask();
    Rest takeAnswer();
    void Text3_Change();
    void compare();
    void stop();
    void end(TransferEnd how);
    void giveUp();

    CatLink& m_link;
    MsgBox& m_msgBox;
    MSFlexGrid& m_grid;
    std::unique_ptr<Timer> m_timer2;
    std::minstd_rand m_random{std::random_device{}()};
    std::string m_number;  // of the item, "001"
    int m_row = 0;         // where the answer goes
    int m_col = 0;
    bool m_waiting = false;  // the query is out
    AnswerPatience m_patience;
    Connections m_connections;
};

}  // namespace korvex
