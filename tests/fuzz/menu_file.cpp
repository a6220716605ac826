#include "fuzz/DataFile.h"
#include "fuzz/Fuzz.h"
#include "menu/MenuFile.h"

namespace korvex {

/// A file of the menu: what is taken from it fits into the table, and is in the file again after a save.
FUZZ_TARGET(menu_file) {
    fuzz::checkItems("menu", input);
    const auto lines = menuFileLines(input);
    if (!lines) return;
    ASSERT_LE(lines->size(), std::size_t{152});
    MenuCommandTable table;
    int row = 0;
    bool plain = true;
    for (const auto& line : *lines) {
        plain = plain && fuzz::isPlain(line);
        table.setAnswer(++row, line);
    }
    EXPECT_LE(answersInPlace(table), menuItemCount);
    if (!plain) return;
    const auto again = menuFileLines(menuFileText(table));
    ASSERT_TRUE(again) << again.error().text;
    ASSERT_EQ(again->size(), std::size_t{menuItemCount});
    for (int item = 1; item <= menuItemCount; ++item) {
        EXPECT_EQ((*again)[static_cast<std::size_t>(item) - 1], table.answer(item));
    }
}

}  // namespace korvex
