#pragma once

#include <memory>
#include <string>

#include "bandstack/BandStack.h"
#include "cat/AnswerPatience.h"
#include "cat/PhaseFlag.h"
#include "platform/Clock.h"
#include "terminal/Terminal.h"
#include "terminal/TransferEnd.h"

namespace korvex {

/// What a cell is written to the radio as. The antenna is told with more digits than it is set with. And what was read
/// while the tuner tuned, or news of a pressed key that took a row, must not key the transmitter now: the tuner is
/// switched on instead of started, the rest is left out.
std::string bandStackCommand(const std::string& cell);

/// Writes the grid back into the radio, register by register, and sets each register's antenna right at its end.
///
///     timer   ms   works    does                                              leaves when
///     Timer2  50   100 ms   one cell with CR LF: the band-select command,     row 22 is out: Timer3
///                           then rows 1 to 22; no answer is expected          past column 33: "Terminated"
///     Timer3  300  600 ms   asks for the antenna, once                        sent: Timer4
///     Timer4  200  400 ms   waits for the answer; if its fifth character is   answered: Timer5
///                           not the stored one, row 24 becomes AN05;
///     Timer5  200  400 ms   sends row 24, which may be empty                  sent: Timer6
///     Timer6  200  400 ms   goes to the next column                           Timer2
///
/// Each timer works on every second call of its handler, and each hand-over calls the next handler once at once. A
/// column whose first answer the radio had refused ("?;") is skipped, and the two after it.
///
/// A radio that does not tell its antenna is waited for, and the owner is told. When the port closes, the write is
/// over, but for Timer3, which waits for the port to come back.
class BandStackWriter {
public:
    BandStackWriter(Terminal& terminal, Clock& clock, BandStack& stack);

    void mnu_writeBandStack_Click();
    void stop();

    bool running() const;
    Signal<const Outcome&> ended;

private:
    struct PhasedTimer {
        std::unique_ptr<Timer> timer;
        PhaseFlag phase;

        bool Enabled() const { return timer->Enabled(); }
        void start() { timer->setEnabled(true); }
        void stop() { timer->setEnabled(false); }
    };

    void setUp(PhasedTimer& phased, Clock& clock, int interval, void (BandStackWriter::*handler)());
    void onPortClosed();
    void clearTextFields();
    void showSent(const std::string& wire);

    void Timer2_Timer();
    void writeCell();
    void skipRefusedBand();
    void startAntennaStep();
    void finish();
    void Timer3_Timer();
    void queryAntenna();
    Rest takeAntennaAnswer();
    void Timer4_Timer();
    void tellSilence();
    void decideAntennaCommand();
    void Timer5_Timer();
    void Timer6_Timer();

    Terminal& m_terminal;
    CatLink& m_link;
    BandStack& m_stack;
    PhasedTimer m_timer2;
    PhasedTimer m_timer3;
    PhasedTimer m_timer4;
    PhasedTimer m_timer5;
    PhasedTimer m_timer6;
    AnswerPatience m_patience;
    bool m_waitsForPort = false;  // it closed while Timer3 was running
    Connections m_connections;
};

}  // namespace korvex
