#include "base/NumberText.h"
#include "radio/Commands.h"
#include "radio/MenuItems.h"
#include "radio/SimulatedRadio.h"

namespace korvex::commands {

namespace {

/// In early firmware what is 028 in later ones was 027, and so on.
int storedNumber(const SimulatedRadio& radio, int number) {
    constexpr int lastUnmoved = 26;
    return number + (radio.quirks.earlyMenuNumbers && number > lastUnmoved ? 1 : 0);
}

}  // namespace

std::string menuItem(SimulatedRadio& radio, std::string_view command) {
    constexpr std::size_t numberEnd = 5;
    const auto digits = command.substr(2, 3);
    if (!rules::digits(3, 1, std::min(radio.quirks.menuItems, RadioState::menuItems)).accepts(digits)) {
        return std::string(refused);
    }
    const int number = storedNumber(radio, *parseWhole(digits));
    if (number > RadioState::menuItems) return std::string(refused);
    auto& item = radio.state.menu.at(static_cast<std::size_t>(number));
    const auto value = command.substr(numberEnd);
    if (value.empty()) return std::string(command) + item + ";";
    if (number == radio.quirks.readOnlyItem || !menuRule(number).accepts(value)) return std::string(refused);
    item = value;
    return {};
}

}  // namespace korvex::commands
