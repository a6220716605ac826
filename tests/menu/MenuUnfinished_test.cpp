#include "menu/MenuTransferBench.h"

namespace korvex {
namespace {

using MenuUnfinishedTest = MenuTransferBench;

TEST_F(MenuUnfinishedTest, WhatABrokenOffReadingHasBroughtIsKeptInAFileThatSaysSo) {
    program.files.remember(file);
    const std::string kept = bench.folder.file("shack-incomplete.mnu");
    // The radio does not hear item 10: every later answer comes one place too early.
    const auto answer = line.answer;
    line.answer = [answer](std::string_view wire) { return wire == "EX010;" ? "" : answer(wire); };
    std::string expected;
    for (int item = 1; item <= 149; ++item) {
        if (item < 34 && item != 10) expected += "EX" + zeroPadded(item, 3) + "1;";
        expected += "\r\n";
    }
    program.menuSave.mnu_Store_Click();
    bench.clock.advance(3'360);
    bench.msgBox.foresee(
        "The reading was stopped at item 34 of 149; 32 items were read.\r\n"
        "Keep them in a file that is marked as incomplete?",
        MsgAnswer::Yes);
    bench.fileDialog.choose(kept);
    program.progress.cancelled.emit();
    EXPECT_EQ(bench.msgBox.shown.back().buttons, MsgButtons::YesNoCareful);
    EXPECT_EQ(bench.fileDialog.shown.back().start, kept);
    EXPECT_EQ(fakes::fileContent(kept), expected);
    EXPECT_TRUE(bench.error().starts_with("Stopped at item 34 of 149")) << bench.error();
    EXPECT_NE(program.link.received().text().find("only 32 of 149 menu items"), std::string::npos);
    EXPECT_EQ(ends, std::vector{Outcome::Kind::Cancelled});

    bench.fileDialog.choose(kept);
    bench.msgBox.foresee("shack-incomplete.mnu holds 32 of 149 menu items.", MsgAnswer::No);
    program.menuRestore.mnu_Restore_Click();

    line.answer = answer;
    program.menuSave.mnu_Store_Click();
    bench.fileDialog.cancel();
    bench.clock.advance(20'000);
    EXPECT_EQ(bench.fileDialog.shown.back().start, file) << "a whole menu is not proposed to be called incomplete";

    line.answer = [answer](std::string_view wire) { return wire < "EX100;" ? answer(wire) : ""; };
    program.menuSave.mnu_Store_Click();
    bench.msgBox.foresee("The radio has stopped answering; 99 items were read.", MsgAnswer::No);
    bench.clock.advance(20'000);
    EXPECT_EQ(bench.error(), "Communication faild ");
}

TEST_F(MenuUnfinishedTest, NobodyIsAskedToKeepNothingOrWhatWasStoppedForSomethingElse) {
    program.menuSave.mnu_Store_Click();
    program.progress.cancelled.emit();
    program.menuSave.mnu_Store_Click();
    bench.clock.advance(1'000);
    for (const MsgAnswer answer : {MsgAnswer::No, MsgAnswer::Yes}) {
        bench.msgBox.foresee("Stop it?", answer);
        program.memory.saver.mnu_saveMem_Click();
    }
    EXPECT_TRUE(program.memory.saver.running());
    bench.msgBox.foresee("Stop it?", MsgAnswer::Yes);
    EXPECT_TRUE(program.end());
}

}  // namespace
}  // namespace korvex
