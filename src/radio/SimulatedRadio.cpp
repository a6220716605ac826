#include "radio/SimulatedRadio.h"

#include <algorithm>

#include "base/NumberText.h"
#include "radio/Commands.h"

namespace korvex {

namespace {

/// Letters of either case are taken; the text of a keyer memory stays as it is.
std::string inCapitals(std::string_view command) {
    std::string text(command);
    std::transform(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(std::min<std::size_t>(2, text.size())),
                   text.begin(), asciiUpper);
    if (!text.starts_with("KM")) std::transform(text.begin(), text.end(), text.begin(), asciiUpper);
    return text;
}

}  // namespace

std::string SimulatedRadio::answer(std::string_view text) {
    std::string answers;
    for (const char c : text) {
        if (const auto command = m_cutter.take(c)) answers += obey(*command);
    }
    return answers;
}

std::string SimulatedRadio::obey(std::string_view text) {
    const std::string command = inCapitals(text);
    const bool off = state.get("PS") == "0";
    if (off && command != "PS1") return {};
    const auto handler = commands::handlerOf(command);
    std::string answered = handler == nullptr ? std::string(commands::refused) : handler(*this, command);
    if (!answered.empty()) return answered;
    ++timesSet;
    if (quirks.answersSets) answered = command + ";";
    return answered;
}

}  // namespace korvex
