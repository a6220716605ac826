#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace korvex {

/// How many menu items the radio has; they are numbered from 1.
inline constexpr int menuItemCount = 149;

/// The read command of a menu item: EX001; to EX149;.
std::string menuReadCommand(int item);

/// What the radio takes as the value of an item: digits, some with a sign in front ("1", "0300", "-05").
bool isMenuValue(std::string_view value);

/// The command that sets an item, as wire text, from its number ("001") and a value as a person sees it. Nothing when
/// that is no value; an empty one makes the question for the item.
std::optional<std::string> menuWriteCommand(const std::string& number, std::string_view value);

/// The number of the item in a menu line: its third to fifth character, UTF-8; empty in a line without any.
std::string itemInLine(std::string_view line);

/// What the radio last answered for each menu item, from row 1 on: wire text exactly as it came, with its ";".
class MenuCommandTable {
public:
    /// Empty for a row that does not exist.
    const std::string& answer(int row) const;
    /// A row that does not exist is passed over: noise on the line can end more answers than were asked for.
    void setAnswer(int row, std::string wire);
    void clearAnswers();

private:
    std::array<std::string, menuItemCount + 1> m_answers;
};

}  // namespace korvex
