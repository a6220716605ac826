#include "base/Lines.h"
#include "fuzz/DataFile.h"
#include "fuzz/Fuzz.h"
#include "fuzz/Judge.h"
#include "memory/MemoryListFile.h"
#include "memory/MemoryListWriter.h"

namespace korvex {

/// A memory list: every record has its row, and the list is in the file again after a save.
FUZZ_TARGET(memory_list_file) {
    fuzz::checkItems("list", input);
    const auto parsed = parseMemoryListFile(input);
    if (!parsed) return;
    const auto& records = *parsed;
    MemoryList list;
    list.replaceAll(records);
    bool plain = true;
    bool keepable = true;  // a quoted remark can hold a comma, which is told at the save
    std::string sent;
    for (const auto& [row, record] : records) {
        ASSERT_TRUE(row >= 1 && row <= MemoryList::rows);
        plain = plain && fuzz::isPlain(memoryListLine(record));
        keepable = keepable && record[MemoryField::Remark].find_first_of("\r\n,") == std::string::npos;
        sent.append(memoryListCommand(list, row).value_or("")).append(crLf);
    }
    EXPECT_EQ(fuzz::keysTransmitterWith(sent), "");
    const auto text = memoryListFileText(list);
    EXPECT_EQ(static_cast<bool>(text), keepable);
    if (text && plain) {
        const auto again = parseMemoryListFile(*text);
        ASSERT_TRUE(again);
        EXPECT_EQ(*again, records);
    }
}

}  // namespace korvex
