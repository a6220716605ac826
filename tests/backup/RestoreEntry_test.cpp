#include <gtest/gtest.h>

#include "fakes/ProgramBench.h"
#include "fakes/WholeRestore.h"
#include "radio/SimulatedPorts.h"
#include "radio/StateText.h"

namespace korvex {
namespace {

namespace fs = std::filesystem;

/// "Restore whole Radio..." with a backup of the same radio, made a moment ago.
struct WholeRestoreEntry : testing::Test {
    fakes::ProgramBench<SimulatedPorts> bench;
    Program& program = bench.program;
    RadioState& radio = bench.ports.radio().state;
    const std::string dir = bench.folder.file("backups");
    std::string backup;
    std::string copy;

    WholeRestoreEntry() {
        bench.openPort();
        program.backup.start({dir, bench.timeOfDay});
        bench.clock.advance(200'000);
        backup = program.backup.path();
        copy = backup + "-before-restore";
    }
    void click() {
        bench.fileDialog.choose(backup);
        program.restoreEntry.mnu_RestoreRadio_Click();
    }
    std::string nextBox() {
        const auto before = bench.msgBox.shown.size();
        EXPECT_TRUE(bench.clock.advanceUntil([&] { return bench.msgBox.shown.size() > before; }, 200'000));
        return bench.msgBox.shown.back().text;
    }
};

TEST_F(WholeRestoreEntry, ShowsWhatDiffersAndWritesItWhenThePersonSaysSo) {
    radio.menu.at(42) = "007";
    radio.memories.at(1) = "07000000+000000300000";
    const std::string changed = stateText(radio);
    for (const auto answer : {MsgAnswer::No, MsgAnswer::Yes}) {
        bench.msgBox.foresee("menu: 1 of 149 items are written: 042", answer);
        click();
        EXPECT_NE(nextBox().find("Write this into the radio?"), std::string::npos);
        EXPECT_EQ(bench.msgBox.shown.back().buttons, MsgButtons::YesNoCareful);
        EXPECT_NE(bench.msgBox.shown.back().details.find("menu 042: the radio has \"007\", the file \""),
                  std::string::npos);
        if (answer == MsgAnswer::Yes) break;
        bench.clock.advance(60'000);
        EXPECT_EQ(fakes::asWalked(stateText(radio)).find("menu 042 = 007") == std::string::npos, false);
        EXPECT_FALSE(fs::exists(copy)) << "a copy of what stays";
        EXPECT_EQ(program.link.pace, Pace::Every100Ms);
    }
    bench.msgBox.foresee("The radio is as the backup says.");
    const std::string told = nextBox();
    EXPECT_NE(told.find("menu: 148 unchanged, 1 written\r\nmemory: 24 unchanged, 1 written\r\n"), std::string::npos)
        << told;
    EXPECT_NE(told.find(copy), std::string::npos) << told;
    EXPECT_TRUE(fs::exists(copy + "/menu.mnu"));
    EXPECT_EQ(program.link.pace, Pace::Every100Ms);
    EXPECT_FALSE(program.restore.running());
    bench.msgBox.foresee("The radio is as the backup says.");
    click();
    EXPECT_NE(nextBox().find("menu: 149 unchanged"), std::string::npos) << "nothing to ask";
}

TEST_F(WholeRestoreEntry, TellsWhyThereIsNone) {
    bench.msgBox.foresee("holds no file of a backup");
    bench.fileDialog.choose(dir);
    program.restoreEntry.mnu_RestoreRadio_Click();
    fs::copy(backup, backup + ".incomplete");
    bench.msgBox.foresee("is a backup that was cut off", MsgAnswer::No);
    bench.fileDialog.choose(backup + ".incomplete");
    program.restoreEntry.mnu_RestoreRadio_Click();

    radio.menu.at(42) = "007";
    bench.clock.after(2'000, [this] { bench.ports.unplug(); });
    click();
    bench.msgBox.foresee("The simulated radio is not plugged in");
    EXPECT_EQ(nextBox().find("Write"), std::string::npos);
    bench.msgBox.foresee("The restore did not come to its end.\r\n\r\nthe port was closed\r\nNothing was written.");
    nextBox();
    bench.ports.faults() = {};
    bench.ports.plugIn();
    bench.msgBox.foresee("The port is closed");
    program.restoreEntry.mnu_RestoreRadio_Click();
    bench.openPort();
    click();
    bench.msgBox.foresee("Write this into the radio?", MsgAnswer::Yes);
    bench.msgBox.whileShown = [this] { program.link.closePort(); };
    nextBox();
    bench.msgBox.whileShown = nullptr;
    bench.msgBox.foresee("The restore did not come to its end.");
    EXPECT_NE(nextBox().find("menu: The port is closed."), std::string::npos) << bench.msgBox.shown.back().text;
    EXPECT_EQ(radio.menu.at(42), "007");
}

}  // namespace
}  // namespace korvex
