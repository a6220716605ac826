#pragma once

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace korvex {

/// How an operation between radio and computer ended, with what a person wants to know of it.
struct Outcome {
    enum class Kind {
        Done,
        Refused,     ///< the radio took the question and would not answer it, or refused everything
        NoAnswer,    ///< the radio's answers did not come in time
        PortClosed,  ///< by the user, or because the device went away
        Cancelled,   ///< by the user, or the line was another's and the user let it be
        FileFailed,  ///< a file could not be read or written, or is none of its kind
    };

    Outcome() = default;
    Outcome(Kind how) : kind(how) {}
    Outcome(Kind how, int doneItems, int ofItems, std::vector<std::string> refusedItems, std::string why)
        : kind(how), done(doneItems), of(ofItems), refused(std::move(refusedItems)), reason(std::move(why)) {}
    operator Kind() const { return kind; }

    Kind kind = Kind::Done;
    int done = 0;                          ///< items that are where they belong, in the file or in the radio
    int of = 0;                            ///< items that there are; 0 where nothing is counted
    int at = 0;                            ///< the item that it was broken off at; 0: behind those that are done
    std::vector<std::string> refused;      ///< names of the items that the radio refused, UTF-8
    std::string reason;                    ///< UTF-8, for a person; empty where the kind says it all
    std::vector<std::string> different;    ///< items that were written, and the radio shows another value
    std::vector<std::string> unconfirmed;  ///< items that were sent, and the radio does not tell of them
    std::vector<std::string> leftOut;      ///< items that were not sent: this radio is known to refuse them

    /// The item where it was broken off, from 1.
    int brokenOffAt() const { return at > 0 ? at : std::min(done + 1, of); }
    bool isDone() const { return kind == Kind::Done; }
    /// All has gone out, be it that the radio did not tell of every item.
    bool wentThrough() const { return isDone() || (kind == Kind::NoAnswer && !unconfirmed.empty()); }
    bool isFlawless() const {
        return isDone() && refused.empty() && different.empty() && unconfirmed.empty() && leftOut.empty();
    }
};

/// "031, 088"; of many the first twelve, with "..." behind them.
std::string someOf(const std::vector<std::string>& names);

/// What an operation counts, and which way it goes: for the words about it.
struct ItemWords {
    std::string one = "item";    ///< "item"
    std::string many = "items";  ///< "items"
    bool toRadio = false;        ///< it writes into the radio
};

/// "149 items written, 2 refused: 031, 088"; "Stopped at item 34 of 149; items 1 to 33 are in the radio."; "...; 32
/// items are read." One line, UTF-8.
std::string inWords(const Outcome& outcome, const ItemWords& words);

}  // namespace korvex
