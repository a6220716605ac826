#include <functional>
#include <gtest/gtest.h>
#include <string>

#include "cli/CliBench.h"
#include "fakes/ProgramBench.h"
#include "fakes/TalkativePorts.h"
#include "menu/MenuFile.h"
#include "report/ReportText.h"

namespace korvex {
namespace {

/// An owner with windows, whose radio is checked and then used.
struct CheckedRadio : testing::Test {
    fakes::ProgramBench<fakes::TalkativePorts> bench;
    Program& program = bench.program;
    SimulatedRadio& radio = bench.ports.radio();
    std::string file = bench.folder.file("file");

    void waitForBox() {
        const auto before = bench.msgBox.shown.size();
        EXPECT_TRUE(bench.clock.advanceUntil([&] { return bench.msgBox.shown.size() > before; }, 300'000));
    }
    void check(MsgAnswer save = MsgAnswer::No) {
        if (!program.link.PortOpen()) bench.openPort();
        bench.msgBox.foresee("", save);
        program.checkEntry.mnu_CheckRadio_Click();
        waitForBox();
    }
    std::string wholeMenu() {
        std::string text;
        for (int item = 1; item <= menuItemCount; ++item) {
            const std::string answer = radio.answer(menuReadCommand(item));
            text += (answer == "?;" ? "" : answer) + "\r\n";
        }
        return text;
    }
    /// "Restore Menu to FT2000", to its end.
    void restoreMenu(const std::string& content) {
        bench.ports.written.clear();
        fakes::writeFile(file, content);
        bench.fileDialog.choose(file);
        program.menuRestore.mnu_Restore_Click();
        bench.clock.advanceUntil([&] { return !program.menuRestore.running(); }, 100'000);
        bench.clock.advance(2'000);
    }
    bool wasSent(const std::string& wire) const { return bench.ports.written.find(wire) != std::string::npos; }
    /// The same settings, found at the next start.
    KnownRadio stored() const { return readKnownRadio(bench.settings); }
};

TEST_F(CheckedRadio, GetsAReportThatIsSavedAndToldInABox) {
    bench.openPort();
    const int heard = bench.ports.cable.line.commandsHeard;
    bench.fileDialog.choose(file);
    check(MsgAnswer::Yes);
    const MsgBoxRequest& box = bench.msgBox.shown.back();
    EXPECT_NE(box.text.find("answers as Korvex expects it to"), std::string::npos) << box.text;
    EXPECT_NE(box.text.find("no frequency, text or name of yours"), std::string::npos);
    EXPECT_EQ(box.details, fakes::fileContent(file));
    const auto saved = parseReport(fakes::fileContent(file));
    ASSERT_TRUE(saved);
    EXPECT_EQ(saved->model, radio.answer("ID;"));
    EXPECT_GT(bench.ports.cable.line.commandsHeard, heard + 280);
    EXPECT_EQ(radio.timesSet, 0);
    EXPECT_EQ(stored().checked, bench.timeOfDay);
    EXPECT_TRUE(stored().refusedItems.empty());
    EXPECT_FALSE(program.progress.visible);

    bench.ports.faults().deaf = true;  // of no radio there is nothing to save, nor to learn
    bench.msgBox.foresee("No radio has told what it is");
    program.checkEntry.mnu_CheckRadio_Click();
    waitForBox();
    EXPECT_EQ(stored().checked, bench.timeOfDay);
}

/// The first backup proposes it, once; the backup itself comes behind it.
TEST_F(CheckedRadio, IsProposedByTheFirstBackup) {
    bench.openPort();
    bench.msgBox.foresee("has not met this radio yet", MsgAnswer::Yes);
    bench.msgBox.foresee("answers as Korvex expects", MsgAnswer::No);
    program.backupEntry.mnu_BackupRadio_Click();
    EXPECT_TRUE(bench.fileDialog.shown.empty());
    bench.fileDialog.choose(bench.folder.file("backups"));
    waitForBox();
    EXPECT_EQ(bench.fileDialog.shown.size(), 1U) << "the backup goes on where the check has ended";
    bench.msgBox.foresee("The backup is in");
    waitForBox();
    bench.fileDialog.cancel();
    program.backupEntry.mnu_BackupRadio_Click();  // asked for a folder at once

    fakes::ProgramBench<fakes::TalkativePorts> other;
    other.openPort();
    other.fileDialog.cancel();
    other.msgBox.foresee("has not met this radio yet", MsgAnswer::No);
    other.program.backupEntry.mnu_BackupRadio_Click();
    other.fileDialog.cancel();
    other.program.backupEntry.mnu_BackupRadio_Click();
    EXPECT_EQ(other.ports.cable.line.commandsHeard, 1) << "the communication test alone";
}

/// What it refuses is left out of what is written, by name, until it tells it.
TEST_F(CheckedRadio, IsSentNoItemThatItRefuses) {
    const std::string whole = wholeMenu();
    bench.ports.faults().refusesItems = {"EX042", "EX077"};
    check();
    EXPECT_EQ(stored().refusedItems, (std::vector<std::string>{"042", "077"}));
    bench.msgBox.foresee("CAT settings", MsgAnswer::No);
    restoreMenu(whole);
    EXPECT_FALSE(wasSent("EX042"));
    EXPECT_FALSE(wasSent("EX077"));
    EXPECT_TRUE(wasSent("EX043"));
    EXPECT_NE(bench.error().find("144 items written"), std::string::npos) << bench.error();
    EXPECT_NE(bench.error().find("2 left out because the radio refuses to tell them: 042, 077"), std::string::npos);

    bench.ports.faults().refusesItems = {"EX077"};
    bench.fileDialog.choose(file);
    program.menuSave.mnu_Store_Click();
    bench.clock.advance(20'000);
    EXPECT_EQ(stored().refusedItems, (std::vector<std::string>{"077"}));
    bench.msgBox.foresee("CAT settings", MsgAnswer::No);
    restoreMenu(whole);
    EXPECT_TRUE(wasSent("EX042"));
    EXPECT_FALSE(wasSent("EX077"));
}

/// Knowledge belongs to a port: at another one there may be another radio.
TEST_F(CheckedRadio, IsNotTakenForAnotherOne) {
    bench.ports.faults().refusesItems = {"EX042"};
    check();
    EXPECT_TRUE(program.link.known().refuses("042"));
    auto other = stored();
    other.device = "another adapter";
    program.link.remember(other);
    EXPECT_FALSE(program.link.known().isChecked());
    bench.ports.faults() = {};
    bench.msgBox.foresee("CAT settings", MsgAnswer::No);
    restoreMenu(wholeMenu());
    EXPECT_TRUE(wasSent("EX042"));
}

/// Early menu numbers: nothing with later ones goes in, its own files do, and its CAT settings are 027 to 029.
TEST_F(CheckedRadio, WithEarlyMenuNumbersGetsNoneOfLaterOnes) {
    const std::string later = wholeMenu();
    radio.quirks.earlyMenuNumbers = true;
    const std::string own = wholeMenu();
    check();
    EXPECT_TRUE(stored().hasEarlyMenuNumbers);
    bench.msgBox.foresee("early firmware, by the check of " + bench.timeOfDay);
    restoreMenu(later);
    EXPECT_EQ(bench.ports.written, "");
    bench.msgBox.foresee("holds 148 of 149", MsgAnswer::Yes);
    bench.msgBox.foresee("(menu items 028, 029, 027)", MsgAnswer::Yes);
    restoreMenu(own);
    EXPECT_TRUE(wasSent("EX030"));
    EXPECT_GT(bench.ports.written.find("EX027"), bench.ports.written.rfind("EX148"));
    EXPECT_EQ(wholeMenu(), own);

    program.link.closePort();
    program.eqWindow.Form_Load(bench.settings);
    bench.msgBox.foresee("are not the equalizer");
    program.eqWindow.toggleEqPort();
    bench.msgBox.foresee("are not the equalizer");
    program.eqWindow.Command1_Click(0);
    EXPECT_FALSE(program.eqWindow.isPortOpen());
}

/// Files of early firmware are asked about where nothing is known; sliders move nothing that is no equalizer.
TEST_F(CheckedRadio, NeedsNoCheckToBeSafeFromOtherNumbers) {
    radio.quirks.earlyMenuNumbers = true;
    const std::string early = wholeMenu();
    bench.openPort();
    bench.msgBox.foresee("holds 148 of 149", MsgAnswer::Yes);
    bench.msgBox.foresee("have the menu numbers of early firmware", MsgAnswer::No);
    restoreMenu(early);
    EXPECT_EQ(bench.ports.written, "");

    program.eqWindow.Form_Load(bench.settings);
    program.eqWindow.toggleEqPort();
    bench.clock.advance(10'000);
    const int set = radio.timesSet;
    auto& exchange = program.eqWindow.exchange();
    for (std::size_t item = 0; item < eqItemCount; ++item) exchange.applyValue(item, eqItems[item].highest);
    bench.clock.advance(1'000);
    EXPECT_EQ(radio.timesSet, set);
    EXPECT_NE(program.eqWindow.errorPanel.get().find("Nothing is sent"), std::string::npos);
    EXPECT_EQ(wholeMenu(), early);
}

/// A fast writing leaves room where it is needed, and waits as long as this radio has taken.
TEST_F(CheckedRadio, GetsThePaceThatItNeeds) {
    const std::string whole = wholeMenu();
    bench.ports.faults().oneAtATime = true;
    bench.ports.cable.line.turnaroundMs = 600;
    check();
    EXPECT_TRUE(stored().obeysOneAtATime);
    EXPECT_EQ(stored().longestDelayMs, 1'000);
    program.link.pace = Pace::Answered;
    bench.ports.written.clear();
    fakes::writeFile(file, whole);
    bench.fileDialog.choose(file);
    bench.msgBox.foresee("CAT settings", MsgAnswer::No);
    program.menuRestore.mnu_Restore_Click();
    bench.clock.advanceUntil([&] { return !program.menuRestore.running(); }, 1'000'000);
    EXPECT_EQ(bench.error().find("not confirmed"), std::string::npos) << bench.error();
    const auto first = bench.ports.written.find("EX001;");
    EXPECT_EQ(bench.ports.written.find("EX001;", first + 1), std::string::npos) << "asked twice";
}

TEST_F(CheckedRadio, ThatClosesItsKeyerTextsLosesTheBrace) {
    radio.state.keyer.at(1) = "CQ DE";
    radio.quirks.keyerTextEndsWithBrace = true;
    check();
    program.keyerWindow.readKeyer();
    bench.clock.advance(5'000);
    EXPECT_EQ(keyerText(program.keyerWindow.reader().texts(), 1).bytes(), "CQ DE");
}

/// From the command line, too: the check is kept, and a restore leaves out and names what is refused.
TEST(CheckedRadioWithoutWindows, IsHeededByARestore) {
    cli::CliBench bench;
    const std::string file = bench.folder.file("menu.mnu");
    ASSERT_EQ(bench.run({"--demo", "save", "menu", file}), cli::ExitCode::Done);
    bench.ports.faults().refusesItems = {"EX042"};
    ASSERT_EQ(bench.run({"--demo", "doctor"}), cli::ExitCode::Different);
    EXPECT_NE(bench.run({"--demo", "--all", "restore", "menu", file}), cli::ExitCode::Done);
    EXPECT_EQ(bench.sent.find("EX0420"), std::string::npos);
    EXPECT_NE((bench.out.str() + bench.err.str()).find("042"), std::string::npos) << bench.out.str() + bench.err.str();
}

/// Where nothing is read first, there are no widths to compare.
TEST(CheckedRadioWithoutWindows, GetsNoOtherNumbersUnlessForced) {
    cli::CliBench bench;
    const std::string file = bench.folder.file("menu.mnu");
    ASSERT_EQ(bench.run({"--demo", "save", "menu", file}), cli::ExitCode::Done);
    bench.ports.radio().quirks.earlyMenuNumbers = true;
    ASSERT_EQ(bench.run({"--demo", "doctor"}), cli::ExitCode::Different);
    EXPECT_NE(bench.run({"--demo", "--all", "--no-safety-copy", "restore", "menu", file}), cli::ExitCode::Done);
    EXPECT_EQ(bench.ports.radio().timesSet, 0);
    EXPECT_NE(bench.err.str().find("have the numbers of later firmware"), std::string::npos) << bench.err.str();
    bench.run({"--demo", "--all", "--no-safety-copy", "--force", "restore", "menu", file});
    EXPECT_NE(bench.ports.radio().timesSet, 0);
}

}  // namespace
}  // namespace korvex
