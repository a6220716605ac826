#include "keyer/KeyerFile.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <string>

#include "fakes/ScriptedDevice.h"
#include "keyer/KeyerBench.h"

namespace korvex {
namespace {

struct KeyerFileTest : testing::Test {
    TransferEnd load(const std::string& content) {
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
    EXPECT_EQ(bench.settings.values["Settings/SaveKeyer"], file);
    EXPECT_EQ(bench.fileDialog.shown.back().start, bench.folder.path() + "/files");

    bench.window.table().clearTexts();
    EXPECT_EQ(load(content), TransferEnd::Done);
    EXPECT_EQ(bench.fileDialog.shown.back().start, file);
    EXPECT_EQ(bench.text(2), " \"ü\",;\r\n\x01 ");
    EXPECT_EQ(bench.count(1), "8");
    EXPECT_EQ(save(), content);
}

TEST_F(KeyerFileTest, AShortFileFillsWhatItHas) {
    bench.setText(4, "old");
    EXPECT_EQ(load("|a|b|c|\n|KM1;|ONE|as it stands|\n|KM2;|TWO"), TransferEnd::Done);
    EXPECT_EQ(bench.grid().TextMatrix(0, 0), "a");
    EXPECT_EQ(bench.text(1), "ONE");
    EXPECT_EQ(bench.count(1), "as it stands");
    EXPECT_EQ(bench.text(2) + bench.text(4) + bench.count(4), "");
    EXPECT_EQ(bench.grid().TextMatrix(4, 0), "KM4;");
}

TEST_F(KeyerFileTest, WhatIsNoKeyerFileLeavesTheGridAlone) {
    bench.setText(1, "mine");
    for (const std::string& content :
         {std::string(), std::string("CQ CQ"), std::string("|a|b|c|\r\n|TX1;|b|c|\r\n"),
          "|a|b|c|\r\n|KM1;|" + std::string(100'000, 'E') + "|1|\r\n", std::string(1000, '|')}) {
        bench.msgBox.foresee("not a keyer file");
        EXPECT_EQ(load(content), TransferEnd::FileFailed);
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
    EXPECT_EQ(bench.window.loadKeyerFile(), TransferEnd::Cancelled);
    EXPECT_EQ(bench.text(1), "mine");
}

TEST_F(KeyerFileTest, SaysWhichTextsCannotBeStoredOrSent) {
    bench.setText(3, "a|b");
    bench.msgBox.foresee("Memory 3");
    EXPECT_EQ(bench.window.saveKeyerFile(), TransferEnd::FileFailed);
    EXPECT_FALSE(std::filesystem::exists(file));

    load("|a|b|c|\r\n|KM1;|ONE|3|\r\n|KM2;|TWO;TX1|7|\r\n|\r\n\r\n");
    EXPECT_NE(bench.window.hint.get().find(": KM2."), std::string::npos);

    bench.fileDialog.choose(bench.folder.file("none/contest.kem"));  // a failed save says so without a box
    EXPECT_EQ(bench.window.saveKeyerFile(), TransferEnd::FileFailed);
    EXPECT_TRUE(bench.window.hint.get().starts_with("Not saved: "));
}

}  // namespace
}  // namespace korvex
