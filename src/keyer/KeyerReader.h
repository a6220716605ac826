#pragma once

#include <array>
#include <memory>

#include "cat/PhaseFlag.h"
#include "keyer/KeyerTable.h"
#include "platform/Clock.h"
#include "terminal/Terminal.h"
#include "terminal/TransferEnd.h"

namespace korvex {

/// Reads the five memories: one query every 400 ms, whether or not the answer to the one before has come. An answer
/// belongs to the row that was asked for last.
///
///     400 ms  KM1;   800 ms  KM2;   ...   2000 ms  KM5;   2400 ms  the end
class KeyerReader {
public:
    KeyerReader(Terminal& terminal, Clock& clock, KeyerTable& table);

    void readKeyer();
    void stop();
    bool running() const { return m_timer->Enabled(); }

    /// How many memories have been answered in time since the read began.
    int answered() const;

    Signal<TransferEnd> ended;

private:
    void onTimer();
    void queryNext();
    Rest takeKeyerAnswer();
    void finish(TransferEnd end);

    Terminal& m_terminal;
    CatLink& m_link;
    KeyerTable& m_table;
    std::unique_ptr<Timer> m_timer;
    PhaseFlag m_phase;
    std::array<bool, KeyerTable::rows> m_answered{};
    Connections m_connections;
};

}  // namespace korvex
