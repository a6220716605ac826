#include "menu/MenuCommandTable.h"

#include <algorithm>
#include <utility>

#include "base/CodePage.h"
#include "base/NumberText.h"
#include "cat/TransmitGuard.h"

namespace korvex {

std::string menuReadCommand(int item) {
    return "EX" + zeroPadded(item, 3) + ";";
}

std::optional<std::string> menuWriteCommand(const std::string& number, std::string_view value) {
    const auto wire = wireFromUtf8(value);
    if (!wire) return std::nullopt;
    const bool ends = std::any_of(wire->begin(), wire->end(), [](char c) { return c == ';' || (c >= 0 && c < ' '); });
    std::string command = "EX" + number + *wire + ";";
    if (ends || keysTransmitter(command)) return std::nullopt;
    return command;
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
