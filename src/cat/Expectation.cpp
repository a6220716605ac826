#include "cat/Expectation.h"

namespace korvex {

namespace {

constexpr std::string_view refusal = "?;";

}  // namespace

std::optional<std::string> answerIn(const Expectation& expectation, std::string_view piece) {
    if (expectation.head.empty()) return std::string(piece);
    const auto begin = expectation.holdsAnything ? piece.find(expectation.head) : piece.rfind(expectation.head);
    if (begin == std::string_view::npos) {
        if (piece.ends_with(refusal)) return std::string(refusal);
        return std::nullopt;
    }
    const auto answer = piece.substr(begin);
    if (answer.size() < expectation.shortest) return std::nullopt;
    return std::string(answer);
}

}  // namespace korvex
