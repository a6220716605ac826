#pragma once

#include <set>
#include <string>
#include <vector>

#include "radio/RadioState.h"

namespace korvex::fakes {

/// What a restore of a whole backup leaves as it is in the radio.
struct LeftAsItIs {
    std::string what;  ///< and why
    /// The settings, as the state of a simulated radio calls them; "?" and "*" stand for any characters.
    std::vector<std::string> settings;
    bool onlyEmpty = false;  ///< only where the saved radio had nothing
    bool unlessCat = false;  ///< --with-cat restores them
};
const std::vector<LeftAsItIs>& leftByWholeRestore();

/// The settings of the saved radio that this is about.
std::set<std::string> leftByWholeRestore(const std::string& savedState, bool withCat);

/// A radio that has as little as possible in common with this one: every value that can be set is another, what is
/// empty is filled, and it stands somewhere else. It is on and says nothing unasked, as this one is.
RadioState radioUnlike(const RadioState& one);

/// A state in which the registers of each band count from the one that was used last: which of the three is the first
/// nobody can see from outside.
std::string asWalked(const std::string& state);

/// The settings that differ between two states as a simulated radio keeps them; those of a register are called
/// "registers FA", whichever it is. The registers of a band count as they are walked.
std::set<std::string> whatDiffers(const std::string& one, const std::string& other);

}  // namespace korvex::fakes
