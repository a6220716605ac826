#include "bandstack/BandStackFile.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>

#include "bandstack/BandStackBench.h"
#include "fakes/ScriptedDevice.h"

namespace korvex {
namespace {

struct BandStackFileTest : testing::Test {
    std::string load(const std::string& content) {
        fakes::writeFile(file, content);
        bench.fileDialog.choose(file);
        window.loadBandStackFile();
        return window.Label2;
    }
    std::string save() {
        bench.fileDialog.choose(file);
        window.saveBandStackFile();
        return fakes::fileContent(file);
    }

    BandStackBench<fakes::ScriptedPorts> bench;
    BandStackWindow& window = bench.window;
    MSFlexGrid& grid = bench.window.stack().FlexGrid1;
    std::string file = bench.folder.file("shack.bsr");
};

TEST_F(BandStackFileTest, AFileGivesTheGridBackCellByCell) {
    for (int row = 1; row < 25; ++row) {
        for (int column = 1; column < 34; ++column) {
            bench.setCell(row, column, "X" + std::to_string(row) + "ü" + std::to_string(column) + ";");
        }
    }
    bench.setCell(24, 33, "");
    const auto content = save();
    EXPECT_TRUE(content.starts_with("||BS00;|BS00;|BS00;|BS01;|"));
    EXPECT_NE(content.find("|BS10;|\r\n|AC;|X1\xFC"
                           "1;|"),
              std::string::npos);
    EXPECT_TRUE(
        content.ends_with("|X24\xFC"
                          "32;||\r\n|\r\n\r\n"));
    EXPECT_EQ(std::count(content.begin(), content.end(), '|'), 25 * 35 + 1);
    EXPECT_EQ(window.dateipath.get(), file);
    EXPECT_EQ(bench.settings.values["Settings/SavePathBand"], file);

    grid.Clear();
    EXPECT_EQ(load(content), "0");
    EXPECT_EQ(bench.cell(0, 0), "");
    EXPECT_EQ(bench.cell(24, 0), "AN0;");
    EXPECT_EQ(bench.cell(7, 33), "X7ü33;");
    EXPECT_EQ(save(), content);
    EXPECT_EQ(grid.Cols(), 34);
}

TEST_F(BandStackFileTest, TheEarlierLayoutHasNoQueriesAndMayCountItsRows) {
    std::string content;
    for (int row = 0; row < 21; ++row) {
        for (int column = 1; column < 34; ++column) content += "|" + (row ? std::to_string(row) : "BS00") + ";";
        content += "|\r\n";
    }
    EXPECT_EQ(load(content + "|\r\n\r\n"), "0");
    EXPECT_EQ(bench.cell(1, 0), "FA;");
    EXPECT_EQ(bench.cell(20, 0), "NB1;");
    EXPECT_EQ(bench.cell(20, 33), "20;");
    EXPECT_EQ(bench.cell(21, 0), "NB1;");  // below the earlier queries the labels stay
    EXPECT_EQ(bench.cell(21, 1), "");
    EXPECT_EQ(grid.Rows(), 25);

    load("21" + content);
    EXPECT_EQ(grid.Rows(), 21);
    EXPECT_EQ(bench.cell(20, 33), "20;");
    window.mnu_readBandStack_Click();  // a read needs the whole grid again
    EXPECT_EQ(grid.Rows(), 25);
    EXPECT_EQ(bench.cell(23, 0), "AN0;");
}

TEST_F(BandStackFileTest, AnyContentIsReadWithoutHarm) {
    const std::string half = "||BS00;|";
    for (const auto& content : {std::string(), std::string("|"), std::string(1 << 20, 'x'), std::string(1'000'000, '|'),
                                "99999999|" + half, "-1|" + half, "0|" + half, "1e3|" + half,
                                std::string("|\0|\0;|", 6), std::string("|a,b|\"c|d\",|\r|e|\n|f")}) {
        const bool hasFields = std::count(content.begin(), content.end(), '|') > 1;
        if (!hasFields) bench.msgBox.foresee("Datei nicht für diese Version des Programms ");
        EXPECT_EQ(load(content), hasFields ? "0" : "13");
        EXPECT_EQ(grid.Rows(), 25);
        EXPECT_EQ(grid.Cols(), 34);
    }
    load(half);
    EXPECT_EQ(bench.cell(0, 1), "BS00;");
    EXPECT_EQ(bench.cell(0, 2), "");  // a shorter file fills what it has
}

TEST_F(BandStackFileTest, WhatCannotBeLoadedIsToldInItsWordsAndLeavesTheGrid) {
    bench.setCell(5, 5, "kept");
    bench.fileDialog.cancel();
    window.loadBandStackFile();
    EXPECT_EQ(window.Label2.get(), "0");
    EXPECT_TRUE(window.Label2Yellow);

    const auto fails = [&](const std::string& path, const char* message, const char* number) {
        bench.fileDialog.choose(path);
        bench.msgBox.foresee(message);
        window.loadBandStackFile();
        EXPECT_EQ(bench.msgBox.shown.back().text, message);
        EXPECT_EQ(bench.msgBox.shown.back().icon, MsgIcon::Stop);
        EXPECT_EQ(window.Label2.get(), number);
    };
    fails(bench.folder.file("none.bsr"), "Datei nicht gefunden", "53");
    fails(bench.folder.file("none/none.bsr"), "Pfadeingabe falsch ", "76");
    fails(bench.folder.path(), "Pfadeingabe falsch ausgefüllt", "75");
    fakes::writeFile(file, "||BS00;|\r\n|AC;|tx1;|");
    fails(file, "Datei nicht für diese Version des Programms ", "13");  // it would key the transmitter
    EXPECT_EQ(bench.cell(5, 5), "kept");
    EXPECT_EQ(window.Text2.get(), file);
}

TEST_F(BandStackFileTest, ASaveThatFailsIsShownInThePanelAlone) {
    bench.fileDialog.choose(bench.folder.file("none/none.bsr"));
    EXPECT_EQ(window.saveBandStackFile(), TransferEnd::FileFailed);
    EXPECT_TRUE(window.dateipath.get().starts_with("Not saved: "));
    bench.fileDialog.cancel();
    EXPECT_EQ(window.saveBandStackFile(), TransferEnd::Cancelled);
}

}  // namespace
}  // namespace korvex
