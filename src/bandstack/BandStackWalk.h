#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "bandstack/BandStackReader.h"
#include "bandstack/BandStackWriter.h"
#include "cat/CatLink.h"

namespace korvex {

/// A walk through the band stack, and the way back. Reading or writing steps through the three registers of each band
/// and leaves it two further on, on the last band; so before the walk the radio is asked where it stands, and after it
/// each band is stepped on until the radio shows what its first register has, the band that it stood on last of all.
///
///     FA;  MD0;  ->  the walk  ->  BS00;ID;  FA;  again until it is the frequency of register 00.1  ->  next band
///
/// "ID;" lets what the radio tells unasked of its new frequency go by.
///
/// Where that does not lead home, `whyNotHome` says so; nothing but band-select commands is sent for it. A reading that
/// went astray in a band, because the radio did not hear a step, is made once more.
class BandStackWalk {
public:
    BandStackWalk(CatLink& link, BandStackReader& reader, BandStackWriter& writer);

    /// `ended` tells the end of the walk, at once if the line is not to be had.
    void read();
    void write(const BandStackCells& cells);
    /// Cells of which only one band is to be written (`onlyBandOf`). No other register is known then: the radio is led
    /// back to the frequency that it stood on, in the band that has it.
    void writeBand(const BandStackCells& part);
    /// The last one was a writing.
    bool writes() const { return m_writes; }
    /// Gives the line back without a word.
    void stop();

    /// Where the radio has not been put back to, UTF-8; empty when it stands as it was found.
    const std::string& whyNotHome() const { return m_whyNotHome; }

    Signal<const Outcome&> ended;

private:
    struct Band {
        int number;
        std::string home;       ///< the answer to FA; on its first register
        bool isAlone;           ///< no other of its registers has that frequency
        int presses;            ///< of its button that lead there
        bool isReturn = false;  ///< nothing of it was walked through
    };
    void begin(bool writes, bool isPart, std::function<void()> walk);
    void onNoted(const Outcome& outcome);
    void onWalked(const Outcome& outcome);
    void goHome();
    void chooseWay();
    void addReturn();
    Band wayTo(const BandStackCells& cells, int band, bool isFirst) const;
    int bandOfStart(const BandStackCells& cells) const;
    std::optional<Exchange> nextPress();
    void take(const Reply& reply);
    void check(const std::string& frequency);
    void nextBand(bool isHome);
    void onHome(const Outcome& outcome);
    bool wentAstray() const { return m_at == m_way.size() && !m_notHome.empty(); }
    bool beginStep(const std::string& doing, void (BandStackWalk::*onEnd)(const Outcome&));

    CatLink& m_link;
    BandStackReader& m_reader;
    BandStackWriter& m_writer;
    enum class Stage { Idle, Noting, Walking, GoingHome };
    Stage m_stage = Stage::Idle;
    std::function<void()> m_walk;
    bool m_writes = false;
    bool m_isPart = false;
    bool m_mayReadAgain = false;
    Outcome m_outcome;           // of the walk
    std::string m_frequency;     // "FA14195000;" where the radio stood
    std::string m_mode;          // "MD02;"
    int m_startBand = -1;        // as far as it is known
    std::vector<Band> m_way;     // in the order of the way home
    std::size_t m_at = 0;        // of them
    int m_presses = 0;           // of its button
    bool m_checks = false;       // where the last one has led is asked for now
    std::vector<int> m_notHome;  // bands
    bool m_isBack = false;       // where it stood, when a part was written
    std::string m_whyNotHome;
    Connections m_connections;
    std::unique_ptr<Operation> m_operation;
};

}  // namespace korvex
