#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "bandstack/BandStackCells.h"
#include "cat/CatLink.h"

namespace korvex {

/// Writes the cells into the radio, register by register, and sets each register's antenna right at its end.
///
///     50 ms -> Cell, again every 100 ms: the band-select command, then rows 1 to 22, with CR LF; no answer is expected
///     row 22 is out -> 600 ms -> AskAntenna -> 200 ms -> AwaitAntenna, again every 400 ms until it is answered
///     answered -> 200 ms -> Toggle: AN05; if the receive antenna is not as it was -> 200 ms -> NextRegister
///
/// At the answered pace (CatLink) each command has its row's query behind it, whose answer confirms it; that of row 22
/// tells the antenna, and AN05; is confirmed as well.
///
/// A register whose first answer the radio had refused ("?;") is skipped, and the two after it. A radio that refuses to
/// tell its antenna, or does not answer, is asked three times; then the writing is over, with a reason.
class BandStackWriter {
public:
    explicit BandStackWriter(CatLink& link) : m_link(link) {}

    /// `ended` tells the end, at once if the line is not to be had.
    void write(const BandStackCells& cells);
    bool running() const { return m_operation && m_operation->running() && !m_operation->finished(); }

    /// As they are written: with what the radio said of its antenna in row 23, and what was sent for it in row 24.
    const BandStackCells& cells() const { return m_cells; }

    Signal<> began;                        ///< the line is ours, and nothing has been sent
    Signal<int, int> told;                 ///< row 23 or 24 of this column has been filled
    Signal<const std::string&> sendsCell;  ///< wire text, as it goes
    Signal<const Outcome&> ended;

private:
    enum class Step { Cell, AskAntenna, AwaitAntenna, Toggle, NextRegister };

    void go(Step step, int ms);
    void next();
    void beginRegister(int column);
    bool skipRefusedBand();
    bool isBandRefused() const;
    bool isAllRefused() const;
    void endRefused();
    void writeCell();
    void show(const std::string& command);
    void converse();
    std::optional<Exchange> nextExchange();
    std::optional<Exchange> cellExchange();
    Exchange antennaExchange(const std::string& command) const;
    void take(const Reply& reply);
    void takeTold(const std::string& answer);
    void onTalked(const Outcome& outcome);
    bool shouldToggle(const std::string& answer) const;
    void askAntenna();
    Rest takeAntenna(std::string_view answer);
    void awaitAntenna();
    void askAntennaAgain();
    void breakOffAtAntenna(bool refused);
    void sendToggle();
    void fill(int row, const std::string& text);
    void showTerminated();
    void finish();

    CatLink& m_link;
    BandStackCells m_cells;
    Step m_step = Step::Cell;
    int m_column = 0;
    int m_row = 0;
    int m_written = 0;        // cells
    bool m_setsCell = false;  // the last exchange did
    int m_tries = 0;          // of the question for the antenna, in this register
    int m_looks = 0;          // for the answer to the last one
    std::unique_ptr<Operation> m_operation;
};

}  // namespace korvex
