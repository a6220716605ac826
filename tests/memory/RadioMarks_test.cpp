#include <gtest/gtest.h>

#include "MemoryBench.h"
#include "memory/MemoryListWriter.h"

namespace korvex {
namespace {

TEST_F(MemoryBench, ARestoreFromAFileLeavesTheListsMarksTrue) {
    openPort();
    memory.listReader.mnu_MemSaveFromFT2000_Click();
    clock.advance(30'000);
    ASSERT_TRUE(memory.list.radioHas(1));
    ASSERT_TRUE(memory.list.radioHas(5));
    openPort();
    MemoryRow changed = memory.list.row(3);
    changed[MemoryField::Frequency] = "07040000";
    memory.list.setRow(3, changed);
    EXPECT_FALSE(memory.list.radioHas(3));
    const auto line = [this](int row) { return "MR" + memoryListCommand(memory.list, row)->substr(2) + "\r\n"; };
    write("two.mem", "MR00114250000+000000200080;\r\n" + line(3));
    fileDialog.cancel();
    memory.restorer.mnu_restMem_Click();
    EXPECT_TRUE(memory.list.radioHas(1)) << "nothing was written";
    fileDialog.choose(path("two.mem"));
    memory.restorer.mnu_restMem_Click();
    clock.advance(1'000);
    EXPECT_FALSE(memory.list.radioHas(1));
    EXPECT_TRUE(memory.list.radioHas(3));
    EXPECT_TRUE(memory.list.radioHas(5)) << "not in the file";

    // Cut off behind the second of three, and the third refused where it goes through.
    for (const bool cut : {true, false}) {
        write("three.mem", line(2) + "MR00314250000+000000200080;\r\nMR00514250000+000000200080;\r\n");
        fileDialog.choose(path("three.mem"));
        ports.faults().refusesItems = {"MW005"};
        memory.restorer.mnu_restMem_Click();
        clock.advance(cut ? 200 : 2'000);
        if (cut) link.togglePort();
        EXPECT_TRUE(memory.list.radioHas(2));
        EXPECT_FALSE(memory.list.radioHas(3));
        EXPECT_TRUE(memory.list.radioHas(5));
        if (cut) openPort();
    }
}

}  // namespace
}  // namespace korvex
