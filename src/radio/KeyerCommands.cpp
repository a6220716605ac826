#include <algorithm>

#include "radio/Commands.h"
#include "radio/KeyerText.h"
#include "radio/SimulatedRadio.h"

namespace korvex::commands {

std::string keyerText(SimulatedRadio& radio, std::string_view command) {
    constexpr ValueRule memoryNumber = rules::digits(1, 1, RadioState::keyerTexts);
    const auto digit = command.substr(2, 1);
    if (!memoryNumber.accepts(digit)) return std::string(refused);
    auto& memory = radio.state.keyer.at(static_cast<std::size_t>(digit.front() - '0'));
    const auto text = command.substr(3);
    if (text.empty()) {
        const bool brace = radio.quirks.keyerTextEndsWithBrace && memory.size() < longestKeyerText;
        return std::string(command) + memory + (brace ? "};" : ";");
    }
    if (!isKeyerText(text)) return std::string(refused);
    memory = text;
    return {};
}

std::string keyerPlay(SimulatedRadio& radio, std::string_view command) {
    if (!rules::oneOf("123456789A").accepts(command.substr(2))) return std::string(refused);
    ++radio.timesKeyed;
    return {};
}

}  // namespace korvex::commands
