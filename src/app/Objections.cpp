#include "app/Objections.h"

#include "menu/MenuFile.h"

namespace korvex::objections {

std::string toMenu(const MenuCommandTable& table) {
    const int inPlace = answersInPlace(table);
    if (inPlace == menuItemCount) return {};
    return "only " + std::to_string(inPlace) + " of " + std::to_string(menuItemCount) +
           " menu items were answered in time and in order";
}

std::string toMenuWithRefusals(const MenuCommandTable& table) {
    int told = answersInPlace(table);
    for (int item = 1; item <= menuItemCount; ++item) told += table.answer(item) == "?;" ? 1 : 0;
    return told == menuItemCount ? "" : toMenu(table);
}

std::string toMemories(const MemoryReader& reader) {
    if (reader.damaged() == 0) return {};
    return std::to_string(reader.damaged()) + " memories came through damaged";
}

std::string toBandStack(const BandStack& stack) {
    int strange = 0;
    for (int column = 1; column < BandStack::pastLastColumn; ++column) {
        if (stack.wireText(1, column) == "?;") continue;
        for (int row = 1; row <= BandStack::lastQueried; ++row) strange += stack.answersItsQuery(row, column) ? 0 : 1;
    }
    return strange == 0 ? "" : std::to_string(strange) + " band stack values came through damaged or out of order";
}

std::string toKeyerTexts(const KeyerReader& reader) {
    if (reader.answered() == keyerMemories) return {};
    return "only " + std::to_string(reader.answered()) + " of " + std::to_string(keyerMemories) +
           " keyer texts were answered in time";
}

}  // namespace korvex::objections
