#pragma once

#include <memory>

#include "cat/PhaseFlag.h"
#include "menu/MenuCommandTable.h"
#include "platform/Clock.h"
#include "terminal/Terminal.h"
#include "terminal/TransferEnd.h"

namespace korvex {

/// Writes a menu file back into the radio: one line every 100 ms, each followed by CR LF, without waiting for anything;
/// the radio says nothing to a set that it takes. Always rows 1 to 149 of the table go out, also for a shorter file: a
/// row that was never filled is CR LF alone, which the radio passes over.
class MenuWriter {
public:
    MenuWriter(Terminal& terminal, Clock& clock, MenuCommandTable& table);

    /// "&Restore Menu to FT2000". With the port closed the file is only loaded.
    void mnu_Restore_Click();

    bool running() const { return m_timer6->Enabled(); }
    Signal<const Outcome&> ended;

private:
    bool loadMenuFile();
    void Timer6_Timer();
    void writeNext();
    void finish();
    void onPortClosed();

    Terminal& m_terminal;
    CatLink& m_link;
    MenuCommandTable& m_table;
    std::unique_ptr<Timer> m_timer6;
    PhaseFlag m_phase;
    int m_writeIndex = 1;  // next row to write; 150 when all are out
    Connections m_connections;
};

}  // namespace korvex
