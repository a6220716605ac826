#include <algorithm>

#include "fuzz/DataFile.h"
#include "fuzz/Fuzz.h"
#include "memory/MemoryFile.h"

namespace korvex {

/// A file of the memories: what is taken from it fits into the table, and is in the file again after a save.
FUZZ_TARGET(memory_file) {
    fuzz::checkItems("memory", input);
    const auto lines = parseMemoryFile(input);
    if (!lines) return;
    ASSERT_LE(lines->size(), std::size_t{MemoryTable::lastSlot});
    MemoryTable table;
    int slot = 0;
    for (const auto& line : *lines) table.set(++slot, line);
    if (!std::all_of(lines->begin(), lines->end(), fuzz::isPlain)) return;
    const auto again = parseMemoryFile(memoryFileText(table, slot));
    ASSERT_TRUE(again);
    EXPECT_EQ(*again, *lines);
}

}  // namespace korvex
