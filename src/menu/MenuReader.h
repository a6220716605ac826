#pragma once

#include <functional>
#include <memory>
#include <string>

#include "cat/PhaseFlag.h"
#include "menu/MenuCommandTable.h"
#include "platform/Clock.h"
#include "terminal/Terminal.h"
#include "terminal/TransferEnd.h"

namespace korvex {

/// Reads all menu items of the radio: one read command every 100 ms, whether or not the answer to the one before has
/// come; answers are counted as they arrive. The read is complete with the 149th answer, or when no more come behind
/// the first one after the last command; it has failed when the radio says nothing after the last command.
///
///     sends    EX001;  EX002;  ...  EX149;  (2 s of silence)  -> "Communication faild "
///     answers     EX0011; EX00205; ...          EX1490;       -> complete
///
/// A radio that answers late is waited for: what it still owes would be missing in the file. One that has been silent
/// for 2 s when the last command is out is not.
///
/// Into a file: the save dialog comes at the end. Into the Menu Manager: each answer is handed over as it arrives.
class MenuReader {
public:
    /// `toFile` is the operation that reads for a file.
    MenuReader(Terminal& terminal, Clock& clock, MenuCommandTable& table,
               ActiveOperation toFile = ActiveOperation::MenuReadToFile);

    /// "Save Menu of  FT-2000".
    void mnu_Store_Click();
    /// Asks for a file name and writes the answers of the last read.
    void saveMenuFile();
    /// When it is there: called when everything is read for a file, instead of asking for its name.
    std::function<TransferEnd()> saveFile;

    /// The Menu Manager's read: counters first, then the start.
    void resetMenuReadCounters();
    void startForManager();

    /// The Menu Manager's share of its read. `placeAnswer` gets the item number ("001") and the value (wire text);
    /// `readComplete` is called with the timer stopped and the port closed.
    std::function<void(const std::string& item, const std::string& value)> placeAnswer;
    std::function<void()> readComplete;

    bool running() const { return m_timer4->Enabled(); }
    /// Sends nothing more. The progress window is left to the caller.
    void stop() { m_timer4->setEnabled(false); }
    Signal<const Outcome&> ended;

private:
    void begin();
    void Timer4_Timer();
    bool wasAskedFor(const std::string& answer) const;
    void sendNext();
    void waitForRest();
    void complete();
    void fail();
    void stopShowing();
    Rest takeAnswer();
    void finishForManager();
    void onPortClosed();

    Terminal& m_terminal;
    CatLink& m_link;
    MenuCommandTable& m_table;
    std::unique_ptr<Timer> m_timer4;
    PhaseFlag m_phase;
    const ActiveOperation m_toFile;
    ActiveOperation m_code;       // of the present reading
    int m_sendIndex = 1;          // next item to read; 150 when all commands are out
    int m_answerIndex = 1;        // row of the next answer
    int m_silentSteps = 0;        // of 100 ms, since the last answer
    bool m_answeredLast = false;  // something has come since the last command went out
    Connections m_connections;
};

}  // namespace korvex
