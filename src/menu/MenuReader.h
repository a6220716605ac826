#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "cat/CatLink.h"
#include "cat/PhaseFlag.h"
#include "menu/MenuCommandTable.h"

namespace korvex {

/// What a reading of the menu is for: how its traffic is shown, and the progress window.
struct MenuReading {
    ActiveOperation code = ActiveOperation::MenuReadToFile;
    std::string caption = "Save Menu of FT-2000";
    int bar = 0;  ///< that the progress bar begins with
};

/// Reads all menu items of the radio: one read command every 100 ms, whether or not the answer to the one before has
/// come; answers are counted as they arrive. The read is complete with the 149th answer, or when no more come behind
/// the first one after the last command; it has failed when the radio says nothing after the last command.
///
///     sends    EX001;  EX002;  ...  EX149;  (2 s of silence)  -> "Communication faild "
///     answers     EX0011; EX00205; ...          EX1490;       -> complete
///
/// At the answered pace (CatLink) each command leaves when the answer to the one before has come.
///
/// A radio that answers late is waited for: what it still owes would be missing in the file. One that has been silent
/// for 2 s when the last command is out is not.
class MenuReader {
public:
    explicit MenuReader(CatLink& link) : m_link(link) {}

    /// `ended` tells the end, at once if the line is not to be had. Done: `done` items are in their places, and
    /// `refused` has the numbers of those that the radio would not tell.
    void read(const MenuReading& reading = {});
    /// Gives the line back without a word.
    void stop() { m_operation.reset(); }
    bool running() const { return m_operation && m_operation->running(); }

    /// As far as they have come; kept until the next reading.
    const MenuCommandTable& answers() const { return m_answers; }

    /// Number ("001") and value (wire text) of each item, as it comes.
    Signal<const std::string&, const std::string&> told;
    Signal<const Outcome&> ended;

private:
    void work();
    void sendNext();
    void showNext();
    Rest takeAnswer(std::string_view answer);
    void keep(int item, std::string_view answer);
    void converse();
    void complete();
    void fail();

    CatLink& m_link;
    PhaseFlag m_phase;
    MenuCommandTable m_answers;
    int m_asked = 0;              // the item that was asked for last
    int m_answered = 0;           // the row of the last answer
    int m_silentSteps = 0;        // of 100 ms, since the last answer
    bool m_answeredLast = false;  // something has come since the last command went out
    std::unique_ptr<Operation> m_operation;
};

}  // namespace korvex
