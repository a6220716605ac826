#pragma once

#include <memory>

#include "cat/PhaseFlag.h"
#include "keyer/KeyerTable.h"
#include "platform/Clock.h"
#include "terminal/Terminal.h"
#include "terminal/TransferEnd.h"

namespace korvex {

/// Writes the five memories: "KM1" + text + ";" and so on, one every 400 ms. The radio answers nothing; what it says
/// meanwhile is dropped. An empty text makes the command a query, so that the radio keeps what it has.
///
///     400 ms  KM1CQ CQ DE;   ...   2000 ms  KM5TU 73;   2400 ms  the end
class KeyerWriter {
public:
    KeyerWriter(Terminal& terminal, Clock& clock, KeyerTable& table);

    /// Every text must be sendable (KeyerTable::whyNotSendable).
    void writeKeyer();
    void stop();
    bool running() const { return m_timer->Enabled(); }

    Signal<TransferEnd> ended;

private:
    void onTimer();
    void writeNext();
    void finish(TransferEnd end);

    Terminal& m_terminal;
    CatLink& m_link;
    KeyerTable& m_table;
    std::unique_ptr<Timer> m_timer;
    PhaseFlag m_phase;
    Connections m_connections;
};

}  // namespace korvex
