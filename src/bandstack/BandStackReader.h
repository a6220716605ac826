#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "bandstack/BandStack.h"
#include "bandstack/QueryLedger.h"
#include "cat/AnswerPatience.h"
#include "cat/PhaseFlag.h"
#include "platform/Clock.h"
#include "terminal/Terminal.h"
#include "terminal/TransferEnd.h"

namespace korvex {

/// Reads all band stack registers into the grid. No command addresses a register: the band-select command, sent once
/// for each of a band's three registers, steps through them, and the radio's state is asked for after each step.
///
///     state            does                                            leaves when
///     idle                                                             started from the menu
///     reading column   band-select command, then the query of the      answer 22 has come: next column;
///                      present row every 100 ms until its answer       after column 33: idle, file dialog;
///                      has come, row by row                            the port is closed, or another
///                                                                      operation takes the answers: stopped
///
/// An answer belongs to the row that the cursor is at, whatever it says, unless it answers a query that was sent before
/// (QueryLedger). A silent radio is asked for ever, and the owner is told; closing the port ends it.
class BandStackReader {
public:
    /// `code` is the operation that it claims the answers with.
    BandStackReader(Terminal& terminal, Clock& clock, BandStack& stack,
                    ActiveOperation code = ActiveOperation::BandStackRead);

    void mnu_readBandStack_Click();
    void stop();

    /// Called when everything is read, to ask for a file.
    std::function<TransferEnd()> saveBandStackFile;

    bool running() const { return m_timer1->Enabled(); }
    Signal<const Outcome&> ended;

private:
    void begin();
    void readColumn();
    void Timer1_Timer();
    void sendQuery();
    QueryLedger::Place place() const { return {m_run, m_stack.BandStackColumn, m_stack.BandStackRow}; }
    Rest takeAnswer();
    Rest store(const std::string& answer);
    void takeLate(const QueryLedger::Place& owner, const std::string& answer);
    void normalise(int column);
    void normalise(int row, int column, char highest, const char* replacement);
    void nextReadColumn();
    void finish();
    void tellStrangeAnswers();
    void tellSilence();
    void onPortClosed();
    void giveWay();

    Terminal& m_terminal;
    CatLink& m_link;
    BandStack& m_stack;
    Clock& m_clock;
    QueryLedger m_ledger;
    std::optional<std::string> m_strange;  ///< stands for the row's answer if that has not come by the next query
    int m_run = 0;
    std::unique_ptr<Timer> m_timer1;
    PhaseFlag m_phase;
    const ActiveOperation m_code;
    AnswerPatience m_patience;
    Connections m_connections;
};

}  // namespace korvex
