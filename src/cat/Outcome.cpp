#include "cat/Outcome.h"

#include <algorithm>

namespace korvex {

namespace {

std::string number(int value) {
    return std::to_string(value);
}

/// ", 2 refused: 031, 088"
std::string namesOf(const std::vector<std::string>& items, const char* what) {
    if (items.empty()) return {};
    return ", " + number(static_cast<int>(items.size())) + " " + what + ": " + someOf(items);
}

std::string exceptions(const Outcome& outcome) {
    return namesOf(outcome.refused, "refused") + namesOf(outcome.different, "different") +
           namesOf(outcome.unconfirmed, "not confirmed") +
           namesOf(outcome.leftOut, "left out because the radio refuses to tell them");
}

std::string whole(const Outcome& outcome, const ItemWords& words) {
    return number(outcome.done) + " " + (outcome.done == 1 ? words.one : words.many) +
           (words.toRadio ? " written" : " read") + exceptions(outcome);
}

std::string cause(const Outcome& outcome) {
    switch (outcome.kind) {
        case Outcome::Kind::NoAnswer: return "The radio has stopped answering";
        case Outcome::Kind::PortClosed: return "The port was closed";
        case Outcome::Kind::Refused: return "The radio refused";
        default: return "Stopped";
    }
}

/// What of it is where it belongs.
std::string kept(const Outcome& outcome, const ItemWords& words) {
    if (outcome.done == 0) return words.toRadio ? "nothing was written" : "nothing was read";
    if (!words.toRadio)
        return number(outcome.done) + " " + (outcome.done == 1 ? words.one + " is" : words.many + " are") + " read";
    if (outcome.done == 1) return words.one + " 1 is in the radio";
    return words.many + " 1 to " + number(outcome.done) + " are in the radio";
}

}  // namespace

std::string someOf(const std::vector<std::string>& names) {
    constexpr std::size_t most = 12;  // a panel has one line
    std::string text;
    for (std::size_t i = 0; i < std::min(names.size(), most); ++i) text += (i == 0 ? "" : ", ") + names[i];
    return names.size() > most ? text + ", ..." : text;
}

std::string inWords(const Outcome& outcome, const ItemWords& words) {
    if (outcome.wentThrough()) return whole(outcome, words);
    if (outcome.of == 0 && !outcome.reason.empty()) return outcome.reason;  // it never began
    std::string text = cause(outcome);
    if (outcome.of > 0) {
        text += " at " + words.one + " " + number(outcome.brokenOffAt()) + " of " + number(outcome.of) + "; " +
                kept(outcome, words);
    }
    text += exceptions(outcome) + ".";
    return outcome.reason.empty() ? text : text + " " + outcome.reason;
}

}  // namespace korvex
