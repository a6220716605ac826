#include "menu/MenuCommandTable.h"

#include <utility>

#include "base/NumberText.h"

namespace korvex {

std::string menuReadCommand(int item) {
    return "EX" + zeroPadded(item, 3) + ";";
}

const MenuCommandTable::Row& MenuCommandTable::at(int row) const {
    static const Row nothing;
    return row >= 0 && row <= lastRow ? m_rows[static_cast<std::size_t>(row)] : nothing;
}

void MenuCommandTable::setAnswer(int row, std::string wire) {
    if (row >= 0 && row <= lastRow) m_rows[static_cast<std::size_t>(row)].answer = std::move(wire);
}

void MenuCommandTable::setLineToWrite(int row, std::string wire) {
    if (row >= 0 && row <= lastRow) m_rows[static_cast<std::size_t>(row)].lineToWrite = std::move(wire);
}

void MenuCommandTable::clearAnswers() {
    for (auto& row : m_rows) row.answer.clear();
}

}  // namespace korvex
