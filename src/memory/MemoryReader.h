#pragma once

#include <functional>
#include <memory>
#include <string>

#include "cat/PhaseFlag.h"
#include "memory/MemoryList.h"
#include "memory/MemoryTables.h"
#include "platform/Clock.h"
#include "terminal/Terminal.h"
#include "terminal/TransferEnd.h"

namespace korvex {

/// Reads all memory channels of the radio: one read command every 100 ms, whether or not the answer to the one before
/// has come; answers are matched to commands by counting. A channel without data answers "?;", is counted and not kept.
///
///     sends    MR001;       MR002;  MR003;       ...  MR099;            -> complete with the 99th answer
///     answers     MR001..;     ?;      MR003..;  ...                    -> 2 s of silence: "Communication faild "
///
/// Into a file (Timer7): the save dialog comes at the end. Into the list (Timer9): the port is closed at the end, then
/// the list is filled. A radio slower than 10 answers a second is waited for.
///
/// The table holds what was read, and nothing else, when the last answer is in: the strings of an earlier radio must
/// not come over rows that were just read. A reading that fails on the way leaves it as it is.
class MemoryReader {
public:
    /// `toFile` is the operation that reads for a file.
    MemoryReader(Terminal& terminal, Clock& clock, MemoryTable& table, MemoryList& list,
                 ActiveOperation toFile = ActiveOperation::ReadAllToFile);

    /// "Save Memories of  FT-2000". Nothing happens while a reading is going on: answers on their way would be counted
    /// for the wrong channels.
    void mnu_saveMem_Click() { start(m_toFile, "Save Memories of  FT-2000"); }
    /// "Read Memories of FT-2000"; the same holds. Unsaved changes of the list are asked about.
    void mnu_MemSaveFromFT2000_Click();
    Signal<> listFilled;  ///< with what the radio told
    /// Asks for a file name and writes what the last reading found.
    void saveMemoryFile();
    /// When it is there: called when everything is read for a file, instead of asking for its name.
    std::function<TransferEnd()> saveFile;
    /// What stands in the file of the last reading.
    std::string fileText() const;

    bool running() const { return m_toFile.timer->Enabled() || m_toList.timer->Enabled(); }
    /// Sends nothing more. The progress window is left to the caller.
    void stop();
    /// How many answers of the last reading cannot be what the radio said.
    int damaged() const { return m_damaged; }
    Signal<const Outcome&> ended;

private:
    /// Into the file or into the list: each has its own timer and tick flag, the counters are shared.
    struct Reading {
        ActiveOperation code;
        std::unique_ptr<Timer> timer;
        PhaseFlag phase;
    };

    void prepare(Reading& reading);
    void start(Reading& reading, std::string_view caption);
    void tick(Reading& reading);
    void sendNext();
    void waitForRest(Reading& reading);
    void fail(Reading& reading);
    void giveWay(Reading& reading);
    Rest takeAnswer(Reading& reading);
    void finish(Reading& reading);
    void keepFound();
    void tellDamage();
    void onPortClosed();

    Terminal& m_terminal;
    CatLink& m_link;
    MemoryTable& m_table;
    MemoryList& m_list;
    const MemorySlots m_commands = makeMemoryReadCommands();
    Reading m_toFile;
    Reading m_toList{ActiveOperation::ReadAllToList, {}, {}};
    int m_sendIndex = 1;    // next command to send
    int m_answerIndex = 1;  // command whose answer is expected next
    int m_storeIndex = 1;   // next slot to fill
    MemoryTable m_found;    // by this reading; the table gets it at the end
    int m_silentSteps = 0;  // since all commands are out, or since the last answer after that
    int m_damaged = 0;      // answers that cannot be what the radio said
    Connections m_connections;
};

}  // namespace korvex
