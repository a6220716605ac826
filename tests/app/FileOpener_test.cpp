#include "app/FileOpener.h"

#include <gtest/gtest.h>
#include <utility>

#include "base/NumberText.h"
#include "eq/EqPreset.h"
#include "fakes/ProgramBench.h"
#include "fakes/TalkativePorts.h"
#include "platform/RecentFiles.h"

namespace korvex {
namespace {

class FileOpenerTest : public testing::Test {
protected:
    std::string file(const std::string& name, const std::string& content) {
        fakes::writeFile(bench.folder.file(name), content);
        return bench.folder.file(name);
    }
    void open(const std::string& name) {
        program.opener.open({name});
        bench.clock.advance(1000);  // the start window's timer, the switch to the equalizer
    }

    fakes::ProgramBench<fakes::TalkativePorts> bench;
    Program& program = bench.program;
};

TEST_F(FileOpenerTest, WhatCannotBeOpenedIsToldAndOpensNoWindow) {
    program.opener.open({});
    bench.msgBox.foresee("3 files were given");
    program.opener.open({"a.mnu", "b.mnu", "c.mnu"});
    bench.msgBox.foresee("There is no file " + bench.folder.file("gone.mef"));
    open(bench.folder.file("gone.mef"));
    bench.msgBox.foresee("is a folder");
    open(bench.folder.path());
    bench.msgBox.foresee("whose files end in .mnu, .mem, .mef, .csv, .bsr, .kem, .eqp.");
    open(file("holiday.jpg", "x"));
    for (const WindowState* window : {&program.windows.terminal, &program.windows.keyer}) EXPECT_FALSE(window->visible);
}

TEST_F(FileOpenerTest, EachKindOpensItsToolAndLoadsWithItsOwnQuestions) {
    const std::string keyer = file("CQ.KEM", "\"No\",\"Text\",\"Characters\"\r\n\"KM1;\",\"CQ DE W1AW\",\"\"\r\n");
    bench.msgBox.foresee("");  // the keyer's own judgement of that file
    open(keyer);
    EXPECT_TRUE(program.windows.keyer.visible);
    EXPECT_TRUE(bench.fileDialog.shown.empty());
    EXPECT_EQ(program.startWindow.backColor(StartWindow::Keyer), StartWindow::lightGreen);

    bench.msgBox.foresee("bad.mnu: ");
    open(file("bad.mnu", "nonsense"));
    EXPECT_TRUE(program.windows.terminal.visible);
    const std::string menu = file("my.mnu", "EX0011;\r\nEX0020;\r\n");
    bench.msgBox.foresee("my.mnu holds 2 menu items", MsgAnswer::No);
    open(menu);
    EXPECT_NE(bench.error().find("my.mnu: 2 menu items"), std::string::npos) << bench.error();
    EXPECT_EQ(program.files.path.get(), menu) << "where the restore begins to ask";
    EXPECT_EQ(bench.ports.written, "") << "opening a file writes nothing into a radio";
}

TEST_F(FileOpenerTest, AMenuComesIntoAColumnOfTheMenuManagerWhereThatIsWanted) {
    MenuManager& manager = program.menuManager;
    const auto cell = [&](int column) { return manager.grid.TextMatrix(1, column); };
    bench.database.records.resize(191, std::vector<std::string>(15));
    for (int row = 1; row <= 149; ++row) bench.database.records[static_cast<std::size_t>(row)][1] = zeroPadded(row, 3);
    bench.database.records[1][8] = "9";  // Settings 1 is taken
    bool loaded = false;                 // by the window, when it is made
    const auto shown = program.windows.menuManager.visible.changed.connect([&](bool) {
        if (!std::exchange(loaded, true)) manager.Form_Load();
    });
    bench.msgBox.foresee("Neither writes into the radio", MsgAnswer::Yes);
    open(file("my.mnu", "EX0011;\r\nEX0020;\r\n"));
    bench.clock.advance(5'000);
    EXPECT_TRUE(program.windows.menuManager.visible);
    EXPECT_EQ(cell(7) + "/" + cell(8), "9/1");
    EXPECT_EQ(manager.SelectedSettingsColumn(), 8);

    // Open already: nothing is asked, and the selected column is the one.
    open(file("other.mnu", "EX0012;\r\n"));
    bench.clock.advance(5'000);
    EXPECT_EQ(cell(7) + "/" + cell(8), "9/2");
    EXPECT_EQ(bench.ports.written, "");
}

TEST_F(FileOpenerTest, APresetWaitsForTheRadiosOwnValues) {
    const EqValues values{300, 5, 4, 1000, -12, 1, 3200, 10, 10};
    open(file("my.eqp", eqPresetText(values)));
    EXPECT_TRUE(program.windows.equalizer.visible);
    EXPECT_EQ(program.eqWindow.errorPanel.get(), "Open the port to use the preset");
    program.eqWindow.toggleEqPort();
    bench.msgBox.foresee("Low 300 Hz +05 dB Q 04, Middle 1000 Hz -12 dB Q 01, High 3200 Hz", MsgAnswer::Yes);
    bench.clock.advance(20'000);
    EXPECT_EQ(program.eqWindow.exchange().shownValues(), values);
}

TEST_F(FileOpenerTest, RecentFilesAreThoseThatCanBeOpenedNewestFirst) {
    for (const char* name : {"1.mnu", "2.mef", "a folder", "3.kem", "2.mef"}) recentfiles::add(bench.settings, name);
    EXPECT_EQ(program.opener.recent(), (std::vector<std::string>{"2.mef", "3.kem", "1.mnu"}));
    for (int i = 0; i < 20; ++i) recentfiles::add(bench.settings, std::to_string(i) + ".bsr");
    EXPECT_EQ(program.opener.recent().size(), recentfiles::most);
    EXPECT_EQ(program.opener.recent().front(), "19.bsr");
    program.files.remember("x.mem");
    EXPECT_EQ(program.opener.recent().front(), "x.mem");

    bench.fileDialog.choose(file("holiday.jpg", "x"));
    bench.msgBox.foresee("holiday.jpg is no file of this program");
    program.opener.mnu_OpenFile_Click("from here");
    EXPECT_EQ(bench.fileDialog.shown[0].start, "from here");
    EXPECT_NE(bench.fileDialog.shown[0].filter.find("|*.mnu;*.mem;*.mef;*.csv;*.bsr;*.kem;*.eqp|"), std::string::npos);
}

}  // namespace
}  // namespace korvex
