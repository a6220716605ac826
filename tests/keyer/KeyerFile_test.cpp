#include "keyer/KeyerFile.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

#include "fakes/ScriptedDevice.h"
#include "keyer/KeyerBench.h"

namespace korvex {
namespace {

struct KeyerFileTest : testing::Test {
    Outcome::Kind load(const std::string& content) {
        fakes::writeFile(file, content);
        bench.fileDialog.choose(file);
        return bench.window.loadKeyerFile();
    }
    std::string save() {
        bench.fileDialog.choose(file);
        bench.window.saveKeyerFile();
        return fakes::fileContent(file);
    }
    const MsgBoxRequest& box() { return bench.msgBox.shown.back(); }

    KeyerBench<fakes::ScriptedPorts> bench;
    std::string file = bench.folder.file("contest.kem");
};

TEST_F(KeyerFileTest, AFileGivesEveryCellBack) {
    bench.setText(1, "CQ CQ DE");
    bench.grid().setTextMatrix(1, 2, "8");
    bench.setText(2, " \"ü\",;\r\n\x01 ");
    bench.setText(5, "x");
    const std::string content = save();
    EXPECT_EQ(content,
              "|Mem.|Keyer Text|Char. Count|\r\n|KM1;|CQ CQ DE|8|\r\n|KM2;| \"\xFC\",;\r\n\x01 ||\r\n|KM3;|||\r\n"
              "|KM4;|||\r\n|KM5;|x||\r\n|\r\n\r\n");
    EXPECT_EQ(bench.window.hint.get(), "Without a text in the file: KM3, KM4. ");
    EXPECT_EQ(bench.settings.values["Settings/SaveKeyer"], file);
    EXPECT_EQ(bench.fileDialog.shown.back().start, bench.folder.path() + "/files");

    bench.window.table().clearTexts();
    EXPECT_EQ(load(content), Outcome::Kind::Done);
    EXPECT_EQ(bench.fileDialog.shown.back().start, file);
    EXPECT_EQ(bench.text(2), " \"ü\",;\r\n\x01 ");
    EXPECT_EQ(bench.count(1), "8");
    EXPECT_EQ(save(), content);
}

TEST_F(KeyerFileTest, AShortFileFillsWhatItHas) {
    bench.setText(4, "old");
    EXPECT_EQ(load("|a|b|c|\n|KM1;|ONE|as it stands|\n|KM2;|TWO||"), Outcome::Kind::Done);
    EXPECT_EQ(bench.grid().TextMatrix(0, 0), "a");
    EXPECT_EQ(bench.text(1), "ONE");
    EXPECT_EQ(bench.count(1), "as it stands");
    EXPECT_EQ(bench.text(2), "TWO");
    EXPECT_EQ(bench.text(4) + bench.count(4), "");
    EXPECT_EQ(bench.grid().TextMatrix(4, 0), "KM4;");
    EXPECT_EQ(bench.window.hint.get(), "The file holds only 2 of 5 memories. ");
}

TEST_F(KeyerFileTest, WhatIsNoKeyerFileIsRefusedWithItsLineAndLeavesTheGridAlone) {
    bench.setText(1, "mine");
    const std::string titles = "|Mem.|Keyer Text|Char. Count|\r\n";
    const std::string first = "|KM1;|a\r\nb|4|\r\n";
    const std::vector<std::pair<std::string, std::string>> refused = {
        {"", "line 1 is not the text of KM1;"},
        {"CQ | CQ", "line 1 does not begin with \"|\""},
        {std::string(1000, '|'), "line 1 does not end behind its third column"},
        {"||BS00;|BS00;|BS00;|\r\n", "line 1 does not end"},
        {first, "line 1 is not the titles"},
        {titles + "|\r\n\r\n", "line 2 is not the text of KM1;"},
        {titles + "|TX1;|b|c|\r\n", "line 2 does not begin with KM1;"},
        {titles + first + "|KM1;|b|c|\r\n", "line 4 does not begin with KM2;"},
        {titles + first + "|KM2;|b", "line 4 is cut off"},
        {titles + first + "|KM2;|b|1\r\n|\r\n\r\n", "line 4 is cut off"},
        {titles + "|KM1;|" + std::string(100'000, 'E') + "|1|\r\n", "line 2 has a text that is too long"},
        {titles + "|KM1;|||\n|KM2;|||\n|KM3;|||\n|KM4;|||\n|KM5;|||\n|KM6;|||\n", "line 7 is one too many"},
    };
    for (const auto& [content, why] : refused) {
        bench.msgBox.foresee("This is not a keyer file: " + why);
        EXPECT_EQ(load(content), Outcome::Kind::FileFailed);
        EXPECT_EQ(box().title, "Datei nicht für diese Version des Programms ");
        EXPECT_EQ(box().icon, MsgIcon::Stop);
        EXPECT_EQ(bench.text(1), "mine");
    }
    const auto fails = [&](const std::string& path, const std::string& title) {
        bench.fileDialog.choose(path);
        bench.msgBox.foresee("");
        bench.window.loadKeyerFile();
        EXPECT_EQ(box().title, title);
    };
    fails(bench.folder.file("none.kem"), "Datei nicht gefunden");
    fails(bench.folder.file("none/none.kem"), "Pfadeingabe falsch ");
    fails(bench.folder.path(), "Pfadeingabe falsch ausgefüllt");
    bench.fileDialog.cancel();
    EXPECT_EQ(bench.window.loadKeyerFile(), Outcome::Kind::Cancelled);
    EXPECT_EQ(bench.text(1), "mine");
}

TEST_F(KeyerFileTest, SaysWhichTextsCannotBeStoredOrSent) {
    bench.setText(3, "a|b");
    bench.msgBox.foresee("Memory 3");
    EXPECT_EQ(bench.window.saveKeyerFile(), Outcome::Kind::FileFailed);
    EXPECT_FALSE(std::filesystem::exists(file));

    load("|a|b|c|\r\n|KM1;|ONE|3|\r\n|KM2;|TWO;TX1|7|\r\n|\r\n\r\n");
    EXPECT_NE(bench.window.hint.get().find(": KM2."), std::string::npos);

    const std::string remembered = bench.settings.values["Settings/SaveKeyer"];
    bench.fileDialog.choose(bench.folder.file("none/contest.kem"));
    bench.msgBox.foresee("none/contest.kem");
    bench.fileDialog.cancel();
    EXPECT_EQ(bench.window.saveKeyerFile(), Outcome::Kind::FileFailed);
    EXPECT_TRUE(bench.window.hint.get().starts_with("Not saved: "));
    EXPECT_EQ(bench.settings.values["Settings/SaveKeyer"], remembered);
}

}  // namespace
}  // namespace korvex
