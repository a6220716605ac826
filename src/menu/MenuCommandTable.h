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

/// The command that sets an item, as wire text, from its number ("001") and a value as a person sees it. Nothing when
/// the value cannot be sent: a ";" or a line end in it would make another command of the rest.
std::optional<std::string> menuWriteCommand(const std::string& number, std::string_view value);

/// One row a menu item: what the radio last answered, and what is written back. Both are wire text exactly as it came,
/// with its ";". Rows 150 to 152 exist only to take surplus lines of a long menu file; they are never sent.
class MenuCommandTable {
public:
    static constexpr int lastRow = 152;

    const std::string& answer(int row) const { return at(row).answer; }
    const std::string& lineToWrite(int row) const { return at(row).lineToWrite; }
    /// A row that does not exist is passed over: noise on the line can end more answers than were asked for.
    void setAnswer(int row, std::string wire);
    void setLineToWrite(int row, std::string wire);
    void clearAnswers();

private:
    struct Row {
        std::string answer;
        std::string lineToWrite;
    };
    const Row& at(int row) const;

    std::array<Row, lastRow + 1> m_rows;
};

}  // namespace korvex
