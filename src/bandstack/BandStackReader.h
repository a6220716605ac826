#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "bandstack/BandStackCells.h"
#include "bandstack/QueryLedger.h"
#include "cat/CatLink.h"

namespace korvex {

/// Reads all band stack registers. No command addresses a register: the band-select command, sent once for each of a
/// band's three registers, steps through them, and the radio's state is asked for after each step.
///
///     register: band-select command -> 50 ms -> query of row 1, again every 100 ms until it is answered
///               -> query of row 2 ... -> row 22 answered -> next register; after the last: the end
///
/// At the answered pace (CatLink) each query leaves when the answer to the one before has come, the band-select command
/// with the first; a radio that stays silent ends it.
///
/// An answer belongs to the row that is asked for, whatever it says, unless it answers a query that was sent before
/// (QueryLedger). A silent radio is asked for ever; closing the port or Cancel ends it.
class BandStackReader {
public:
    BandStackReader(CatLink& link, Clock& clock) : m_link(link), m_clock(clock) {}

    /// `ended` tells the end, at once if the line is not to be had.
    void read();
    /// Gives the line back without a word.
    void stop() { m_operation.reset(); }
    bool running() const { return m_operation && m_operation->running(); }

    /// As far as they have come. Digits that the radio tells but does not take are replaced.
    const BandStackCells& cells() const { return m_cells; }

    Signal<> began;         ///< the line is ours, and nothing has come
    Signal<int, int> told;  ///< the cell of this row and column has come
    Signal<> silent;        ///< nothing has come for 5 s; told once a silence
    Signal<const Outcome&> ended;

private:
    void readRegister(int column);
    void askAgain();
    void show(const std::string& query);
    QueryLedger::Place place() const { return {m_run, m_column, m_row}; }
    Rest takeAnswer(std::string_view piece);
    void takeLate(const QueryLedger::Place& owner, const std::string& answer);
    Rest store(const std::string& answer);
    void take(const std::string& answer);
    void finish();
    void converse();
    std::optional<Exchange> nextExchange();
    void beginRegister(int column);
    void keep(int row, int column, const std::string& answer);
    void watchSilence();
    void onEnd(const Outcome& outcome);

    CatLink& m_link;
    Clock& m_clock;
    PhaseFlag m_phase;
    BandStackCells m_cells;
    QueryLedger m_ledger;
    std::optional<std::string> m_strange;  // stands for the row's answer if that has not come by the next query
    bool m_silent = false;                 // the last query was asked again and again, and not answered
    int m_run = 0;
    int m_column = 0;
    int m_row = 0;
    std::unique_ptr<Operation> m_operation;
};

}  // namespace korvex
