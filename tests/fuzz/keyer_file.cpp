#include "fuzz/DataFile.h"
#include "fuzz/Fuzz.h"
#include "keyer/KeyerTable.h"

namespace korvex {

/// A file of the keyer's texts: what the table holds is in the file again after a save, and is told when it cannot be.
FUZZ_TARGET(keyer_file) {
    fuzz::checkItems("keyer", input);
    const auto rows = parseKeyerFile(input);
    if (!rows) return;
    ASSERT_LE(rows->size(), std::size_t{KeyerTable::rows});
    KeyerTable table;
    table.fill(*rows);
    for (int row = 0; row < KeyerTable::rows; ++row) ASSERT_EQ(table.whyNotStorable(row), "");
    const std::string text = keyerFileText(table.fileRows());
    const auto again = parseKeyerFile(text);
    ASSERT_TRUE(again) << again.error().text;
    KeyerTable other;
    other.fill(*again);
    EXPECT_EQ(keyerFileText(other.fileRows()), text);
}

}  // namespace korvex
