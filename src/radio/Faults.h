#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/RuntimeError.h"

namespace korvex {

/// What is wrong with the simulated radio or its line. May be changed while it runs; the counts go down as commands
/// come in.
struct Faults {
    bool deaf = false;                      ///< does not hear commands at all
    std::optional<int> deafOnce;            ///< does not hear the Nth command from now
    std::optional<int> deafAfter;           ///< turns deaf after N more commands
    int slowMs = 0;                         ///< answers that much later
    bool split = false;                     ///< answers come in pieces, cut at odd places
    int glued = 0;                          ///< that many answers come at once; 0 and 1: each for itself
    bool garbage = false;                   ///< noise before every answer, most of it above 127, never a ";"
    bool eighthBit = false;                 ///< every third character of an answer, but no ";", comes above 127
    bool refuses = false;                   ///< "?;" to everything
    std::vector<std::string> refusesItems;  ///< "?;" to commands that begin so
    bool unasked = false;                   ///< tells of the dial being turned between answers
    bool oneAtATime = false;                ///< a command that comes before the last one is done is lost
    bool echoes = false;                    ///< what it hears comes back at once, as from some cables and adapters
    std::optional<int> unplugged;           ///< the device goes away after N more commands; 0: at the next one
    std::optional<int> forgetsWrite;        ///< accepts the Nth set command from now without storing it; 0: every one
};

/// Sets one fault from NAME or NAME=VALUE: deaf, deaf-once[=N], deaf-after=N, slow=MS, split, glued[=N], garbage,
/// eighth-bit, refuses, refuses-item=NNN (a menu item) or refuses-item=MD (the beginning of a command), unasked,
/// one-at-a-time, echoes, unplugged[=N], forgets-write[=N]; "none" ends them all. What cannot be understood changes
/// nothing.
Failure setFault(Faults& faults, std::string_view text);

/// The names that setFault takes, a line for each, for a help text.
std::string_view faultHelp();

}  // namespace korvex
