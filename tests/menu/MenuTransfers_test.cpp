#include <algorithm>
#include <utility>

#include "base/NumberText.h"
#include "menu/MenuTransferBench.h"
#include "radio/SimulatedPorts.h"

namespace korvex {
namespace {
using MenuTransferTest = MenuTransferBench;

TEST_F(MenuTransferTest, ReadsAllItemsTenASecondIntoAFile) {
    bench.fileDialog.choose(file);
    program.menuSave.mnu_Store_Click();
    EXPECT_EQ(bench.error(), "Reading Menu");
    EXPECT_TRUE(program.progress.visible);
    EXPECT_EQ(program.progress.caption.get(), "Save Menu of FT-2000");
    EXPECT_EQ(program.progress.maximum, 155);
    bench.clock.advance(49);
    EXPECT_EQ(line.story(), "");
    bench.clock.advance(101);
    EXPECT_EQ(line.story(), "50 EX001;|150 EX002;");
    EXPECT_EQ(bench.error(), "Reading Menu 2");
    EXPECT_EQ(program.progress.value, 2);
    bench.clock.advance(20'000);
    ASSERT_EQ(line.writes.size(), 149U);
    EXPECT_EQ(line.writes.back(), (fakes::ScriptedLine::Write{14'850, "EX149;"}));
    EXPECT_EQ(fakes::fileContent(file), wholeFile());
    EXPECT_EQ(bench.error(), "Terminated");
    EXPECT_EQ(program.link.received().text(), "");
    EXPECT_FALSE(program.progress.visible);
    EXPECT_EQ(program.files.path.get(), file);
    EXPECT_EQ(program.link.activeOperation(), ActiveOperation::Idle);
    EXPECT_EQ(ends, std::vector<Outcome::Kind>{Outcome::Kind::Done});
    EXPECT_EQ(bench.fileDialog.shown.at(0).title, "Save FT-2000 Menu");
}

TEST_F(MenuTransferTest, ARadioThatDoesNotAnswerInTimeEndsTheReadWithoutAFile) {
    line.answer = nullptr;
    program.menuSave.mnu_Store_Click();
    bench.clock.advance(14'949);
    EXPECT_EQ(bench.error(), "Reading Menu 149");
    bench.clock.advance(1);
    EXPECT_EQ(bench.error(), "Communication faild ");
    EXPECT_FALSE(program.progress.visible);
    EXPECT_EQ(program.link.activeOperation(), ActiveOperation::Idle);
    line.feed("EX1491;");  // too late: shown, nothing more
    EXPECT_TRUE(program.link.received().text().ends_with("EX1491;\r\n"));
    EXPECT_EQ(ends, std::vector<Outcome::Kind>{Outcome::Kind::NoAnswer});
}

TEST_F(MenuTransferTest, MissingAnswersBecomeEmptyLinesAndTheOwnerIsTold) {
    const auto answer = line.answer;
    line.answer = [answer](std::string_view wire) { return wire == "EX149;" ? "" : answer(wire); };
    line.answerDelay = 130;  // the answer to 148 comes after 149 was sent: the radio is there
    bench.fileDialog.choose(file);
    program.menuSave.mnu_Store_Click();
    bench.clock.advance(20'000);
    std::string expected = wholeFile();
    expected.replace(expected.find("EX1491;"), 7, "");
    EXPECT_EQ(fakes::fileContent(file), expected);
    EXPECT_EQ(bench.error(), "Terminated");
    EXPECT_NE(program.link.received().text().find("only 148 of 149"), std::string::npos);
    EXPECT_NE(program.link.received().text().find("again. \r\n Missing: 149 \r\n"), std::string::npos);

    // What the radio refuses it would refuse again.
    line.answerDelay = 30;
    line.answer = [answer](std::string_view wire) {
        return wire == "EX031;" || wire == "EX088;" ? "?;" : answer(wire);
    };
    bench.fileDialog.choose(file);
    program.menuSave.mnu_Store_Click();
    bench.clock.advance(20'000);
    EXPECT_EQ(program.link.received().text(), " Attention: the radio refused 2 of 149 menu items: \r\n 031, 088 \r\n");
}

TEST_F(MenuTransferTest, ALateRadioIsWaitedForUntilTheLastAnswer) {
    line.answerDelay = 1'900;
    bench.fileDialog.choose(file);
    program.menuSave.mnu_Store_Click();
    bench.clock.advance(20'000);
    EXPECT_EQ(fakes::fileContent(file), wholeFile());
    EXPECT_EQ(ends, std::vector<Outcome::Kind>{Outcome::Kind::Done});

    // The last answer has two seconds from the one before it.
    const auto answer = line.answer;
    line.answer = [answer](std::string_view wire) { return wire == "EX149;" ? "" : answer(wire); };
    line.answerDelay = 30;
    bench.fileDialog.choose(file);
    program.menuSave.mnu_Store_Click();
    bench.clock.advance(14'730 + 1'950);
    line.feed("EX1491;");
    EXPECT_EQ(fakes::fileContent(file), wholeFile());
    EXPECT_EQ(ends, (std::vector{Outcome::Kind::Done, Outcome::Kind::Done}));
}

TEST_F(MenuTransferTest, ClosingThePortEndsEitherTransferAtOnceAndWritesNothing) {
    program.menuSave.mnu_Store_Click();
    bench.clock.advance(5'000);
    bench.msgBox.foresee("The port was closed at item 50 of 149; 50 items were read.", MsgAnswer::No);
    program.link.togglePort();
    line.forgetWrites();
    bench.clock.advance(20'000);
    EXPECT_EQ(line.story(), "");
    EXPECT_FALSE(program.progress.visible);

    bench.openPort();
    restore(wholeFile());
    bench.clock.advance(5'000);
    bench.msgBox.foresee("");
    line.goAway();
    bench.clock.advance(20'000);
    EXPECT_FALSE(program.progress.visible);
    EXPECT_EQ(bench.clock.armedTimers(), 0U);
    EXPECT_EQ(ends, (std::vector<Outcome::Kind>{Outcome::Kind::PortClosed, Outcome::Kind::PortClosed}));
}

TEST_F(MenuTransferTest, ACancelledDialogOrABadFolderLeavesNoFile) {
    bench.fileDialog.cancel();
    program.menuSave.mnu_Store_Click();
    bench.clock.advance(20'000);
    EXPECT_EQ(bench.error(), "Reading Menu 149");

    const auto saveTo = [this](const std::string& path, const std::string& title) {
        bench.fileDialog.choose(path);
        bench.msgBox.foresee(path);
        bench.fileDialog.cancel();  // the other name that it asks for
        program.menuSave.saveMenuFile();
        EXPECT_EQ(bench.msgBox.shown.back().title, title);
        EXPECT_EQ(bench.msgBox.shown.back().icon, MsgIcon::Stop);
    };
    saveTo(bench.folder.file("missing/shack.mnu"), "Path wrong ");
    saveTo(bench.folder.path(), "Path wrong");

    const std::string other = bench.folder.file("shack.mnu");
    bench.fileDialog.choose(bench.folder.file("missing/shack.mnu"));
    bench.msgBox.foresee("missing");
    bench.fileDialog.choose(other);
    program.menuSave.saveMenuFile();
    const std::string saved = fakes::fileContent(other);
    EXPECT_EQ(std::count(saved.begin(), saved.end(), '\n'), 149);
    EXPECT_EQ(program.files.path.get(), other);
    EXPECT_EQ(bench.fileDialog.shown.back().defaultExtension, "mnu");
}

TEST_F(MenuTransferTest, RestoresALineEvery100MsAndSaysTerminated) {
    std::string content = wholeFile();
    content.resize(content.size() - 2);  // no line end at the end
    restore(content);
    EXPECT_EQ(program.progress.caption.get(), "Restore Menu to FT2000");
    EXPECT_EQ(program.progress.maximum, 155);
    bench.clock.advance(99);
    EXPECT_EQ(line.story(), "");
    bench.clock.advance(1);
    EXPECT_EQ(line.story(), "100 EX0011;\r\n");
    EXPECT_EQ(bench.error(), "Writing Menu 001");
    EXPECT_EQ(program.link.lineWritten.get(), "EX0011;");
    EXPECT_EQ(program.link.received().text(), "EX0011;  ");
    bench.clock.advance(14'799);
    EXPECT_EQ(line.writes.size(), 148U);
    bench.clock.advance(1);
    ASSERT_EQ(line.writes.size(), 149U);
    // What can cut the line comes last, the speed at the very end.
    EXPECT_EQ(line.writes.at(27).text, "EX0311;\r\n");
    EXPECT_EQ(line.writes.at(145).text, "EX1491;\r\n");
    EXPECT_EQ(line.writes.at(146).text, "EX0291;\r\n");
    EXPECT_EQ(line.writes.back(), (fakes::ScriptedLine::Write{14'900, "EX0281;\r\n"}));
    EXPECT_EQ(bench.error(), "Terminated");
    EXPECT_EQ(program.link.lineWritten.get(), "Terminated");
    EXPECT_TRUE(program.link.sent().text().ends_with("EX0281;\r\nTerminated\r\n"));
    EXPECT_EQ(program.link.activeOperation(), ActiveOperation::Idle);
    EXPECT_FALSE(program.progress.visible);

    // The second one begins with the half step that works, and leaves the CAT settings alone when it is told to.
    line.forgetWrites();
    restore(content, MsgAnswer::No);
    bench.clock.advance(99);
    EXPECT_EQ(line.story(), "50 EX0011;\r\n");
    bench.clock.advance(20'000);
    EXPECT_EQ(line.writes.size(), 146U);
    EXPECT_EQ(line.story().find("EX028"), std::string::npos);
    EXPECT_EQ(ends, (std::vector<Outcome::Kind>{Outcome::Kind::Done, Outcome::Kind::Done}));
}

TEST_F(MenuTransferTest, AtTheAnsweredPaceEachItemIsConfirmedAndBehindTheSpeedNothingIsAsked) {
    line.answerDelay = 5;
    line.answer = [](std::string_view wire) -> std::string {
        if (wire.starts_with("EX005")) return "?;EX0050;";
        return wire.size() == 13 ? std::string(wire.substr(0, 7)) : "";
    };
    program.link.pace = Pace::Answered;
    restore(wholeFile());
    EXPECT_EQ(line.story(), "0 EX0011;EX001;");
    bench.clock.advance(148 * 5);
    ASSERT_EQ(line.writes.size(), 149U);
    EXPECT_EQ(line.writes.at(147).text, "EX0301;EX030;");
    EXPECT_EQ(line.writes.back(), (fakes::ScriptedLine::Write{148 * 5, "EX0281;"}));
    bench.clock.advance(100);
    EXPECT_EQ(line.writes.size(), 149U);
    EXPECT_EQ(bench.error(), "147 items written, 1 refused: 005, 1 not confirmed: 028");
    EXPECT_EQ(ends, std::vector{Outcome::Kind::Done});
}

TEST_F(MenuTransferTest, AnIncompleteFileIsAskedAboutAndFollowedByBareLineEnds) {
    const std::string text = "holds 3 of 149";
    bench.msgBox.foresee(text, MsgAnswer::No);
    restore("EX0015;\nEX0025;\r\n?;\r\n\"EX0045;\"\r\n");
    bench.clock.advance(20'000);
    EXPECT_EQ(line.story(), "");
    EXPECT_EQ(ends, std::vector<Outcome::Kind>{Outcome::Kind::Cancelled});
    fakes::writeFile(file, wholeFile().erase(0, wholeFile().find("EX002")));
    bench.fileDialog.choose(file);
    bench.msgBox.foresee("holds 148 of 149", MsgAnswer::No);
    program.menuRestore.mnu_Restore_Click();

    bench.msgBox.foresee(text, MsgAnswer::Yes);
    restore("EX0015;\nEX0025;\r\n?;\r\n\"EX0045;\"\r\n");
    bench.clock.advance(20'000);
    ASSERT_EQ(line.writes.size(), 149U);
    EXPECT_EQ(line.writes.at(2).text, "\r\n");  // the radio did not tell it, so there is nothing to set
    EXPECT_EQ(line.writes.at(3).text, "EX0045;\r\n");
    EXPECT_EQ(line.writes.at(4).text, "\r\n");
}

TEST_F(MenuTransferTest, FilesThatAreNoMenuFilesSendNothing) {
    std::string tooLong;
    for (int i = 0; i < 10'000; ++i) tooLong += "EX0011;\r\n";
    const std::vector<std::pair<std::string, std::string>> files = {
        {tooLong, "more than 152 lines"},
        {wholeFile() + "TX1;\r\n", "Line 150 (TX1;) would key the transmitter"},
        {"EX0011;\r\n\"EX0021\r\nTX1;\"\r\n", "Line 2 (EX0021␍␊TX1;) would key"},
        {"MW0010145000000000021000000;\r\n", "Line 1 (MW001014500000000002)"},
        {"EX0011\r\n", "Line 1 (EX0011) is no line of a menu file"},
        {"EX001;\r\n", "Line 1"},
        {"EX0001;\r\n", "Line 1"},
        {"EX1501;\r\n", "Line 1"},
        {"EX0011;\r\nEX002A;\r\n", "Line 2"},
        {"EX001+;\r\n", "Line 1"},
        {std::string("\x7f"
                     "ELF\x02\x01\x01",
                     7),
         "Line 1"},
        {"KM1CQ CQ|DE|\r\n", "Line 1"},
        {"", "There is no menu item in it"},
        {"?;\r\n\r\n", "There is no menu item in it"},
    };
    for (const auto& [content, why] : files) {
        fakes::writeFile(file, content);
        bench.fileDialog.choose(file);
        bench.msgBox.foresee(why);
        program.menuRestore.mnu_Restore_Click();
        EXPECT_NE(bench.error().find(why), std::string::npos) << bench.error();
        EXPECT_NE(bench.error().find("nothing was sent"), std::string::npos) << why;
    }
    bench.fileDialog.choose(bench.folder.file("missing.mnu"));
    bench.msgBox.foresee("missing.mnu");
    program.menuRestore.mnu_Restore_Click();
    EXPECT_EQ(bench.msgBox.shown.back().title, "File not found");
    bench.clock.advance(20'000);
    EXPECT_EQ(line.story(), "");
    EXPECT_EQ(ends, std::vector<Outcome::Kind>(files.size() + 1, Outcome::Kind::FileFailed));
}

TEST_F(MenuTransferTest, AnswersThatNobodyAskedForOrThatComeTogetherMoveNoRow) {
    bench.fileDialog.choose(file);
    line.answer = nullptr;
    program.menuSave.mnu_Store_Click();
    line.feed("FA14250000;EX0019;");  // the communication test's, late, and of an item before it was asked for
    std::string glued;
    for (int item = 1; item <= 149; ++item) {
        bench.clock.advance(100);
        glued += "EX" + zeroPadded(item, 3) + "1;";
        if (item % 50 == 0 || item == 149) line.feed("IF001;" + std::exchange(glued, {}));
    }
    EXPECT_EQ(bench.error(), "Terminated");
    EXPECT_EQ(fakes::fileContent(file), wholeFile());
}

TEST_F(MenuTransferTest, ARefusalBehindNoiseIsARefusal) {
    const auto answer = line.answer;
    line.answer = [answer](std::string_view wire) { return wire == "EX042;" ? "\xF0~?;" : answer(wire); };
    bench.fileDialog.choose(file);
    program.menuSave.mnu_Store_Click();
    bench.clock.advance(20'000);
    std::string expected = wholeFile();
    expected.replace(expected.find("EX0421;"), 7, "?;");
    EXPECT_EQ(fakes::fileContent(file), expected);
}

TEST_F(MenuTransferTest, OneTransferAtATimeAndACancelledDialogLeavesItAlone) {
    restore(wholeFile());
    bench.clock.advance(1'000);
    bench.fileDialog.cancel();
    program.menuRestore.mnu_Restore_Click();
    bench.fileDialog.choose(file);
    bench.msgBox.foresee("CAT settings", MsgAnswer::Yes);
    bench.msgBox.foresee("Writing the menu, item 10 of 149. Stop it?", MsgAnswer::No);
    program.menuRestore.mnu_Restore_Click();
    EXPECT_TRUE(program.progress.visible);
    bench.clock.advance(1'000);
    EXPECT_EQ(line.writes.size(), 20U);
    program.progress.cancelled.emit();
    EXPECT_FALSE(program.progress.visible);
    EXPECT_EQ(bench.error(), "Stopped at item 20 of 149; items 1 to 19 are in the radio.");
    bench.clock.advance(20'000);
    EXPECT_EQ(line.writes.size(), 20U);
    EXPECT_EQ(ends, std::vector<Outcome::Kind>(3, Outcome::Kind::Cancelled));
}

TEST_F(MenuTransferTest, AStallCausesNoBurst) {
    program.menuSave.mnu_Store_Click();
    bench.clock.advance(1'000);
    line.forgetWrites();
    bench.clock.stall(2'000);
    bench.clock.advance(250);
    EXPECT_LE(line.writes.size(), 3U);
    bench.msgBox.foresee("Keep them", MsgAnswer::No);
    program.link.togglePort();
}

TEST(MenuRoundTrip, WhatWasSavedComesBackIntoAnotherRadio) {
    fakes::ProgramBench<SimulatedPorts> bench;
    const std::string file = bench.folder.file("radio.mnu");
    bench.openPort();
    bench.fileDialog.choose(file);
    bench.program.menuSave.mnu_Store_Click();
    bench.clock.advance(20'000);
    ASSERT_EQ(bench.error(), "Terminated");
    const RadioState before = bench.ports.radio().state;
    const std::string saved = fakes::fileContent(file);
    ASSERT_EQ(std::count(saved.begin(), saved.end(), '\n'), 149);

    for (int item = 1; item <= 149; ++item) {
        auto answer = bench.ports.radio().answer("EX" + zeroPadded(item, 3) + ";");
        auto& digit = answer.at(answer.size() - 2);
        digit = digit == '0' ? '1' : '0';
        bench.ports.radio().answer(answer);
    }
    bench.fileDialog.choose(file);
    bench.msgBox.foresee("CAT settings", MsgAnswer::Yes);
    bench.program.menuRestore.mnu_Restore_Click();
    bench.clock.advance(20'000);
    bench.fileDialog.choose(bench.folder.file("again.mnu"));
    bench.program.menuSave.mnu_Store_Click();
    bench.clock.advance(20'000);
    EXPECT_EQ(fakes::fileContent(bench.folder.file("again.mnu")), saved);
    EXPECT_EQ(bench.ports.radio().timesKeyed, 0);
}

}  // namespace
}  // namespace korvex
