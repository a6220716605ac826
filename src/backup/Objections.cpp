#include "backup/Objections.h"

#include "menu/MenuFile.h"

namespace korvex::objections {

std::string toMenu(const MenuCommandTable& table) {
    const int inPlace = answersInPlace(table);
    if (inPlace == menuItemCount) return {};
    return "only " + std::to_string(inPlace) + " of " + std::to_string(menuItemCount) +
           " menu items were answered in time and in order";
}

std::string toMenuWithRefusals(const MenuCommandTable& table) {
    const int told = answersInPlace(table);
    int refused = 0;
    for (int item = 1; item <= menuItemCount; ++item) refused += table.answer(item) == "?;" ? 1 : 0;
    return told > 0 && told + refused == menuItemCount ? "" : toMenu(table);
}

std::string toMemories(const MemoryReader& reader) {
    const std::size_t damaged = reader.damaged().size();
    return damaged == 0 ? "" : std::to_string(damaged) + " memories came through damaged, or as other channels";
}

std::string toBandStack(const BandStackCells& cells) {
    int strange = 0;
    int refused = 0;
    for (int column = 1; column < BandStackCells::columns; ++column) {
        if (cells.at(1, column) == "?;") {
            ++refused;
            continue;
        }
        for (int row = 1; row <= BandStackCells::lastQueried; ++row) {
            strange += cells.answersItsQuery(row, column) ? 0 : 1;
        }
    }
    if (refused == BandStackCells::registers) return "the radio refused every band";
    return strange == 0 ? "" : std::to_string(strange) + " band stack values came through damaged or out of order";
}

std::string toKeyerTexts(const KeyerReader& reader) {
    if (reader.answered() == keyerMemories) return {};
    return "only " + std::to_string(reader.answered()) + " of " + std::to_string(keyerMemories) +
           " keyer texts were answered in time";
}

std::string toKeyerTextsWithRefusals(const KeyerReader& reader) {
    return reader.answered() + reader.refused() == keyerMemories ? "" : toKeyerTexts(reader);
}

}  // namespace korvex::objections
