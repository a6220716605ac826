#include "bandstack/BandStackFile.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

#include "bandstack/BandStackBench.h"
#include "bandstack/QueryLedger.h"
#include "fakes/ScriptedDevice.h"

namespace korvex {
namespace {

struct BandStackFileTest : testing::Test {
    std::string load(const std::string& content) {
        fakes::writeFile(file, content);
        bench.fileDialog.choose(file);
        window.loadBandStackFile();
        return window.loadError;
    }
    std::string save() {
        bench.fileDialog.choose(file);
        window.saveBandStackFile();
        return fakes::fileContent(file);
    }

    BandStackBench<fakes::ScriptedPorts> bench;
    BandStackWindow& window = bench.window;
    MSFlexGrid& grid = bench.window.stack().grid;
    std::string file = bench.folder.file("shack.bsr");
};

TEST_F(BandStackFileTest, AFileGivesTheGridBackCellByCell) {
    for (int row = 1; row < 25; ++row) {
        for (int column = 1; column < 34; ++column) {
            const std::string head(queryHead(bench.cell(row, 0)));
            bench.setCell(row, column,
                          column % 5 == 0 ? "?;" : head + std::to_string(row) + std::to_string(column) + ";");
        }
    }
    bench.setCell(1, 2, "AC002;");  // read while the tuner was tuning
    bench.setCell(24, 33, "");
    bench.setCell(24, 1, "AN05;");  // what a writing sent
    const auto content = save();
    EXPECT_TRUE(content.starts_with("||BS00;|BS00;|BS00;|BS01;|"));
    EXPECT_NE(content.find("|BS10;|\r\n|AC;|AC11;|AC002;|AC13;|AC14;|?;|"), std::string::npos) << content;
    EXPECT_TRUE(content.ends_with("|AN02432;||\r\n|\r\n\r\n"));
    EXPECT_EQ(std::count(content.begin(), content.end(), '|'), 25 * 35 + 1);
    EXPECT_EQ(window.dateipath.get(), file);
    EXPECT_EQ(bench.settings.values["Settings/SavePathBand"], file);

    std::string lines = content;
    std::erase(lines, '\r');
    for (const auto& text : {content, lines}) {
        grid.Clear();
        EXPECT_EQ(load(text), "0");
        EXPECT_EQ(bench.cell(0, 0), "");
        EXPECT_EQ(bench.cell(24, 0), "AN0;");
        EXPECT_EQ(bench.cell(7, 33), "ML0733;");
        EXPECT_EQ(save(), content);
    }
}

TEST_F(BandStackFileTest, TheEarlierLayoutHasNoQueriesAndMayCountItsRows) {
    window.stack().show([] {
        BandStackCells cells;
        cells.setEarlierQueries();
        return cells;
    }());
    std::string content;
    for (int row = 0; row < 21; ++row) {
        const std::string answer = std::string(queryHead(bench.cell(row, 0))) + "1;";
        for (int column = 1; column < 34; ++column) content += "|" + (row ? answer : bandSelectCommand(column));
        content += "|\r\n";
    }
    EXPECT_EQ(load(content + "|\r\n\r\n"), "0");
    EXPECT_EQ(bench.cell(1, 0), "FA;");
    EXPECT_EQ(bench.cell(20, 0), "NB1;");
    EXPECT_EQ(bench.cell(20, 33), "NB11;");
    EXPECT_EQ(bench.cell(21, 0), "NB1;");  // below the earlier queries the labels stay
    EXPECT_EQ(bench.cell(21, 1), "");
    EXPECT_EQ(missingRegisters(window.stack().cells()), "");
    const std::string saved = save();
    EXPECT_EQ(load(saved), "0");  // now with its queries
    EXPECT_EQ(save(), saved);

    load("21" + content);
    EXPECT_EQ(grid.Rows(), 21);
    EXPECT_EQ(bench.cell(20, 33), "NB11;");
    load("99999999" + content);
    EXPECT_EQ(grid.Rows(), 25);
}

TEST_F(BandStackFileTest, WhatIsNoBandStackIsRefusedWithItsPlaceAndReason) {
    bench.setCell(5, 5, "kept");
    const std::string top = "||BS00;|\r\n|AC;|AC000;|\r\n";
    const std::vector<std::pair<std::string, std::string>> refused = {
        {"", "The file holds no band stack registers."},
        {"|", "The file holds no band stack registers."},
        {std::string(1 << 20, 'x'), "Row 0 does not begin with \"|\""},
        {"||BS01;|", "Row 0, column 1: \"BS01;\" is not \"BS00;\""},
        {"||BS00;|\r\n|AC;|AC000;|AC0", "Row 1 is cut off"},
        {top + "|FA;|", "Row 2, column 0: \"FA;\" is not the query \"BC0;\""},
        {top + "|BC0;|TX1;|", "Row 2, column 1: \"TX1;\" does not answer \"BC0;\""},
        {top + "|BC0;|BC0;|", "Row 2, column 1: \"BC0;\" does not answer"},
        {top + "|BC0;||BC00;TX1;|", "Row 2, column 2: \"BC00;TX1;\" does not answer"},
        {top + "|BC0;|BC0\tTX1;|", "Row 2, column 1"},
        {top + "|BC0;|BC00;\nTX1;|", "Row 2 is cut off"},
        {top + "|BC0;|BC0" + std::string(100, '0') + ";|", "\"BC000000000000000000...\" does not answer"},
        {"||\n|AC;|\n|BC0;|\n|BP00;|\n|CO00;|\n|MD0;|\n|MD1;|\n|ML0;|\n|NA0;|\n|NA1;|\n|FA;|\n|FB;|\n|GT0;|\n|GT1;|\n|"
         "KR;|\n|BI;|\n|NR0;|\n|PA0;|\n|RA0;|\n|RF0;|\n|NB0;|\n|NB1;|\n|AN0;|AN05;|",
         "Row 22, column 1: \"AN05;\" is nothing"},
        {"||BS00;|\r\n|AC;|AC00|", "Row 1, column 1: \"AC00\" does not answer"},
        {std::string(1'000'000, '|'), "Row 0 has too many cells"},
    };
    for (const auto& [content, reason] : refused) {
        bench.msgBox.foresee(reason);
        EXPECT_EQ(load(content), "13") << reason;
        EXPECT_TRUE(bench.msgBox.shown.back().text.starts_with("Datei nicht für diese Version des Programms \r\n"));
        EXPECT_NE(window.dateipath.get().find(reason), std::string::npos);
        EXPECT_EQ(bench.cell(5, 5), "kept");
    }
    EXPECT_EQ(load("||BS00;|"), "0");  // a shorter file fills what it has
    EXPECT_EQ(bench.cell(0, 1) + bench.cell(0, 2) + bench.cell(5, 5), "BS00;");
}

TEST_F(BandStackFileTest, WhatCannotBeLoadedIsToldInItsWordsAndLeavesTheGrid) {
    bench.setCell(5, 5, "kept");
    const std::string before = window.files().path;
    bench.fileDialog.cancel();
    window.loadBandStackFile();
    EXPECT_EQ(window.loadError.get(), "0");
    EXPECT_TRUE(window.loadErrorSeen);

    const auto fails = [&](const std::string& path, const std::string& message, const char* number) {
        bench.fileDialog.choose(path);
        bench.msgBox.foresee(message);
        window.loadBandStackFile();
        EXPECT_TRUE(bench.msgBox.shown.back().text.starts_with(message + "\r\n"));
        EXPECT_EQ(bench.msgBox.shown.back().icon, MsgIcon::Stop);
        EXPECT_EQ(window.loadError.get(), number);
        EXPECT_EQ(window.files().path.get(), before);
    };
    fails(bench.folder.file("none.bsr"), "Datei nicht gefunden", "53");
    fails(bench.folder.file("none/none.bsr"), "Pfadeingabe falsch ", "76");
    fails(bench.folder.path(), "Pfadeingabe falsch ausgefüllt", "75");
    EXPECT_EQ(bench.cell(5, 5), "kept");
}

TEST_F(BandStackFileTest, ASaveThatFailsAsksForAnotherNameAndIsNotRemembered) {
    const std::string before = window.files().path;
    const std::string gone = bench.folder.file("none/none.bsr");
    bench.fileDialog.choose(gone);
    bench.msgBox.foresee(gone);
    bench.fileDialog.cancel();
    EXPECT_EQ(window.saveBandStackFile(), Outcome::Kind::FileFailed);
    EXPECT_TRUE(window.dateipath.get().starts_with("Not saved: "));
    EXPECT_EQ(window.files().path.get(), before);
    EXPECT_EQ(bench.settings.values.count("Settings/SavePathBand"), 0U);
    bench.fileDialog.cancel();
    EXPECT_EQ(window.saveBandStackFile(), Outcome::Kind::Cancelled);
}

}  // namespace
}  // namespace korvex
