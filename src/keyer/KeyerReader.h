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
/// belongs to the row that was asked for last, unless it names a memory that was asked for before and still owes one.
///
///     400 ms  KM1;   800 ms  KM2;   ...   2000 ms  KM5;   2400 ms  the end
///
/// A radio that answers, but late, is waited for at the end, up to 1200 ms without an answer.
class KeyerReader {
public:
    /// `code` is the operation that it claims the answers with.
    KeyerReader(Terminal& terminal, Clock& clock, KeyerTable& table, ActiveOperation code = ActiveOperation::KeyerRead);

    void readKeyer();
    void stop();
    bool running() const { return m_timer->Enabled(); }

    /// How many memories have been answered in time since the read began.
    int answered() const { return count(Told::Memory); }

    Signal<TransferEnd> ended;

private:
    /// What has come for a row: nothing yet, something that names another memory or none, or what was asked for.
    enum class Told { Nothing, Else, Memory };

    void onTimer();
    void queryNext();
    bool waitsForRest();
    Rest takeKeyerAnswer();
    void store(const std::string& answer);
    int ownerOf(const std::string& answer) const;
    Told& told(int row) { return m_told.at(static_cast<std::size_t>(row)); }
    Told told(int row) const { return m_told.at(static_cast<std::size_t>(row)); }
    int count(Told what) const;
    void finish(TransferEnd end);

    Terminal& m_terminal;
    CatLink& m_link;
    KeyerTable& m_table;
    std::unique_ptr<Timer> m_timer;
    PhaseFlag m_phase;
    std::array<Told, KeyerTable::rows> m_told{};
    int m_silentSteps = 0;  // of 400 ms, after the last query
    const ActiveOperation m_code;
    Connections m_connections;
};

}  // namespace korvex
