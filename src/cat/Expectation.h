#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace korvex {

/// What a step for an answer says about the characters that came in the same read behind it.
enum class Rest { GoOn, Discard };

/// What the answers of an operation look like, so that only answers reach it.
struct Expectation {
    std::string head = {};     ///< "EX": how each answer begins; empty: whatever ends in ";" is an answer
    std::size_t shortest = 0;  ///< with its ";"; what is shorter is an adapter's echo of the question
    /// The answer may hold its head once more (a keyer text "KM1"): it begins at the first, else at the last, because
    /// after a ";" that was lost the rest of the answer before is noise, too.
    bool holdsAnything = false;
};

/// What answers in a piece of the line that ends in ";": from the head on, without the noise in front of it, or "?;"
/// for a refusal. Nothing for what the radio tells unasked, for echoes, and for noise.
std::optional<std::string> answerIn(const Expectation& expectation, std::string_view piece);

}  // namespace korvex
