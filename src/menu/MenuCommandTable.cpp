#include "menu/MenuCommandTable.h"

#include <algorithm>
#include <utility>

#include "base/CodePage.h"
#include "base/NumberText.h"

namespace korvex {

std::string menuReadCommand(int item) {
    return "EX" + zeroPadded(item, 3) + ";";
}

bool isMenuValue(std::string_view value) {
    const std::string_view digits = value.substr(value.starts_with('+') || value.starts_with('-') ? 1 : 0);
    return !digits.empty() && std::all_of(digits.begin(), digits.end(), isDigit);
}

std::optional<std::string> menuWriteCommand(const std::string& number, std::string_view value) {
    if (!value.empty() && !isMenuValue(value)) return std::nullopt;
    return "EX" + number + std::string(value) + ";";
}

std::string itemInLine(std::string_view line) {
    return utf8FromWire(line.size() > 2 ? line.substr(2, 3) : std::string_view());
}

const std::string& MenuCommandTable::answer(int row) const {
    static const std::string nothing;
    return row >= 0 && row <= menuItemCount ? m_answers[static_cast<std::size_t>(row)] : nothing;
}

void MenuCommandTable::setAnswer(int row, std::string wire) {
    if (row >= 0 && row <= menuItemCount) m_answers[static_cast<std::size_t>(row)] = std::move(wire);
}

void MenuCommandTable::clearAnswers() {
    m_answers.fill({});
}

}  // namespace korvex
