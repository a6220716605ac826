#pragma once

#include <memory>

#include "cat/PhaseFlag.h"
#include "menu/MenuCommandTable.h"
#include "platform/Clock.h"
#include "terminal/Terminal.h"
#include "terminal/TransferEnd.h"

namespace korvex {

/// Writes the lines of the table to the radio as the Menu Manager does it: one every 100 ms, each followed by CR LF,
/// and the port closed at the end, when the last of them has left. Another operation that is started meanwhile ends it:
/// it could not go on with its port closed.
class ManagerWriter {
public:
    ManagerWriter(Terminal& terminal, Clock& clock, const MenuCommandTable& table);

    /// With the port closed nothing is sent.
    void start();

    bool running() const { return m_timer1->Enabled(); }
    Signal<const Outcome&> ended;

private:
    void Timer1_Timer();
    void sendNext();
    void finish();
    void end(TransferEnd how);

    Terminal& m_terminal;
    CatLink& m_link;
    const MenuCommandTable& m_table;
    std::unique_ptr<Timer> m_timer1;
    PhaseFlag m_phase;
    int m_writeIndex = 1;  // next row to write; 150 when all are out
    Connections m_connections;
};

}  // namespace korvex
