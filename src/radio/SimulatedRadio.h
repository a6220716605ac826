#pragma once

#include <string>
#include <string_view>

#include "radio/CommandCutter.h"
#include "radio/RadioState.h"

namespace korvex {

/// How the simulated radio behaves where radios and firmwares may differ. The start values are what most of the
/// evidence points to.
struct Quirks {
    bool antennaAnswerTellsRxAntenna = true;  ///< AN0; answers AN010; else AN01;
    bool automaticIsResolved = true;          ///< GT and RF in automatic answer 4..6, else 4 and 0
    bool hasSixtyMetres = true;               ///< BS02 works
    bool emptyChannelAnswersZeros = false;    ///< MR of an empty channel, else ?;
    bool readsCurrentChannel = false;         ///< MR answers with the current channel, whatever was asked for
    char sourceInMemoryRead = '0';            ///< the source digit in an MR answer; MW takes it back
    bool writeEntersMemoryMode = false;       ///< MW
    bool keyerTextEndsWithBrace = false;      ///< KM answers shorter than 50 characters
    bool refusesNotchInAmAndFm = false;       ///< BC
    int menuItems = RadioState::menuItems;    ///< EX beyond it is refused
    bool earlyMenuNumbers = false;  ///< items from 028 on are one number lower: 027 is away, and there is no 149
    int readOnlyItem = 0;           ///< EX cannot set it; 0: there is none
    bool answersSets = false;       ///< what was set is told back
};

/// An FT-2000 that obeys CAT commands. There is no time in it and it never transmits.
class SimulatedRadio {
public:
    RadioState state = ownersRadio();
    Quirks quirks;
    int timesKeyed = 0;  ///< how often a command would have keyed the transmitter
    int timesSet = 0;    ///< how many set commands were obeyed

    /// Takes text as it comes over the line and gives everything that the radio answers to it. A command may come in
    /// pieces.
    std::string answer(std::string_view text);

    /// Obeys one command, given without its ";". The answer is empty after a set, and "?;" when nothing was done.
    std::string obey(std::string_view command);

private:
    CommandCutter m_cutter;
};

}  // namespace korvex
