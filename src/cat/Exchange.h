#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "cat/Expectation.h"
#include "cat/Outcome.h"

namespace korvex {

/// A question to the radio, and what is set right in front of it.
struct Exchange {
    std::string item;          ///< its name for the person: "042"
    std::string query;         ///< "EX042;"; empty: the command goes out, and nothing tells whether it took
    Expectation answer = {};   ///< what an answer to the query looks like
    std::string command = {};  ///< "EX0421;"; empty: it is only asked
    bool mayCutLine = false;   ///< the command may cut the line: silence behind it is no failure
    /// Whether an answer shows that the command took; without it the answer is not compared.
    std::function<bool(std::string_view answer)> confirms = {};
    bool refusedIfEmpty = false;  ///< a refused query tells that nothing is there: the command did not take
};

/// What has come of an exchange.
struct Reply {
    enum class Kind {
        Answer,       ///< as it was asked for; what was set is confirmed
        Refused,      ///< the command was, or the query where there is none
        Different,    ///< set twice, and the radio shows another value
        Unconfirmed,  ///< set, and the radio does not tell it
        None,         ///< asked again and again, and never answered
    };
    Kind kind = Kind::None;
    std::string answer = {};  ///< wire text; empty where none has come, "?;" for a refused query
};

/// A list of exchanges, one after the other.
struct Conversation {
    std::function<std::optional<Exchange>()> next;  ///< the one that follows; nothing: that was all
    std::function<void(const Reply&)> told;         ///< of the exchange that `next` gave last
    /// Last of all; to end the operation. NoAnswer when any exchange, or two in a row, had none.
    std::function<void(Outcome)> done;
};

}  // namespace korvex
