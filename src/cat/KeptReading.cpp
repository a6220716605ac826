#include "cat/KeptReading.h"

namespace korvex {

namespace {

std::string cause(const Outcome& outcome, const ItemWords& words) {
    if (outcome.kind == Outcome::Kind::NoAnswer) return "The radio has stopped answering";
    const std::string stopped =
        outcome.kind == Outcome::Kind::PortClosed ? "The port was closed" : "The reading was stopped";
    return stopped + " at " + words.one + " " + std::to_string(outcome.brokenOffAt()) + " of " +
           std::to_string(outcome.of);
}

}  // namespace

bool mayKeep(const CatLink& link, MsgBox& msgBox, const Outcome& outcome, const PartOfReading& part) {
    const bool began = outcome.of > 0;
    if (outcome.isDone() || !began || part.read == 0 || link.givesWay()) return false;
    const std::string were =
        part.read == 1 ? " " + part.words.one + " was read." : " " + part.words.many + " were read.";
    return msgBox.confirm(cause(outcome, part.words) + "; " + std::to_string(part.read) + were + "\r\n" + part.keep);
}

}  // namespace korvex
