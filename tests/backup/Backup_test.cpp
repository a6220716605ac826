#include <gtest/gtest.h>

#include "fakes/ProgramBench.h"
#include "keyer/KeyerFile.h"
#include "menu/MenuFile.h"
#include "radio/SimulatedPorts.h"

namespace korvex {
namespace {

namespace fs = std::filesystem;

/// The entry of the terminal's menu, with an owner who keeps backups in a folder of his.
struct WholeBackup : testing::Test {
    fakes::ProgramBench<SimulatedPorts> bench;
    Program& program = bench.program;
    const std::string dir = bench.folder.file("backups");
    std::optional<Outcome::Kind> end;
    WholeBackup() { writeSetting(bench.settings, keys::checkProposed, true); }
    Connection listening = program.backup.ended.connect([this](Outcome::Kind how) { end = how; });

    void click() {
        bench.fileDialog.choose(dir);
        program.backupEntry.mnu_BackupRadio_Click();
    }
    /// The box at the end of a backup that is going on.
    std::string toldAtTheEnd() {
        const auto before = bench.msgBox.shown.size();
        bench.msgBox.foresee("");
        EXPECT_TRUE(bench.clock.advanceUntil([&] { return bench.msgBox.shown.size() > before; }, 300'000));
        return bench.msgBox.shown.back().text;
    }
    bool nothingIsLeft() const { return !fs::exists(dir) || fs::is_empty(dir); }
    void expectItWorksAgain() {
        bench.ports.plugIn();
        bench.ports.faults() = {};
        if (!program.link.PortOpen()) bench.openPort();
        click();
        EXPECT_NE(toldAtTheEnd().find("The backup is in"), std::string::npos) << bench.msgBox.shown.back().text;
        EXPECT_EQ(end, Outcome::Kind::Done);
        EXPECT_FALSE(program.progress.visible);
        fs::remove_all(dir);
    }
    /// A backup that something happens to a second after its first to fourth reading was begun; 0: at once.
    std::string brokenBy(int reading, const std::function<void()>& what) {
        if (!program.link.PortOpen()) bench.openPort();
        program.progress.caption = "";
        click();
        const std::string caption = "Backup " + std::to_string(reading);
        bench.clock.advanceUntil([&] { return reading == 0 || program.progress.caption.get().starts_with(caption); },
                                 200'000);
        bench.clock.advance(reading == 0 ? 30 : 1'000);
        EXPECT_TRUE(program.backup.running());
        what();
        const std::string text = toldAtTheEnd();
        const bool isKept = text.starts_with("The backup is not finished.");
        EXPECT_TRUE(isKept || text.starts_with("No backup was made.")) << text;
        EXPECT_EQ(isKept, !nothingIsLeft());
        EXPECT_EQ(isKept, reading > 1) << "at this pace whole readings are kept";
        fs::remove_all(dir);
        EXPECT_FALSE(program.backup.running());
        return text;
    }
};

std::string everythingInTheWindows(Program& program) {
    std::string text = keyerFileText(program.keyerWindow.table().fileRows()) + menuFileText(program.menuSave.answers());
    const std::vector<const MSFlexGrid*> grids = {&program.memory.list.grid, &program.bandStackWindow.stack().grid,
                                                  &program.menuManager.grid};
    for (const auto* grid : grids) {
        for (int row = 0; row < grid->Rows(); ++row) {
            for (int column = 0; column < grid->Cols(); ++column) text += grid->TextMatrix(row, column) + "|";
        }
    }
    for (int slot = 0; slot <= MemoryTable::lastSlot; ++slot) text += program.memory.table[slot];
    for (const std::string& shown :
         {program.files.path.get(), program.terminal.transmitBuffer.get(), program.memory.listFiles.files.path.get(),
          program.memory.editor.writeCommand.get(), program.bandStackWindow.dateipath.get(),
          program.bandStackWindow.files().path.get(), program.keyerWindow.hint.get(),
          program.menuManager.notice.get()}) {
        text += shown + "\n";
    }
    return text;
}

TEST_F(WholeBackup, SavesTheRadioAndLeavesWhatTheWindowsHold) {
    bench.openPort();
    program.memory.list.setCell(7, MemoryField::Frequency, "typed");
    program.memory.table.set(50, "MR05014250000+000000200080;");
    program.keyerWindow.table().setText(2, WireText(std::string("TYPED")));
    program.bandStackWindow.Form_Load();
    program.bandStackWindow.stack().show(3, 3, "TYPED");
    program.menuManager.grid.setTextMatrix(5, 5, "typed");
    program.terminal.term3_KeyPress("F");
    const std::string before = everythingInTheWindows(program);
    bench.ports.faults().refusesItems = {"EX042", "BS02"};
    click();
    EXPECT_TRUE(program.backup.running());
    bench.clock.advance(20'000);
    EXPECT_TRUE(program.progress.visible);
    EXPECT_EQ(program.progress.caption.get(), "Backup 2 of 5: memories");
    const std::string text = toldAtTheEnd();
    for (const char* part :
         {"/backups/korvex-2026-11-22-234254\r\n", "148 menu items\r\n", "bandstack.bsr: 30 registers",
          "It is not complete.\r\nThe radio refused to tell:\r\nmenu 042\r\n", "the band stack of band 02"}) {
        EXPECT_NE(text.find(part), std::string::npos) << part << "\n" << text;
    }
    EXPECT_EQ(bench.msgBox.shown.back().icon, MsgIcon::Exclamation);
    EXPECT_EQ(program.link.panels().Error.get(), "Backup saved, not complete");
    EXPECT_EQ(everythingInTheWindows(program), before);
    EXPECT_TRUE(program.link.PortOpen());
    EXPECT_FALSE(program.progress.visible);
    EXPECT_EQ(std::distance(fs::directory_iterator(dir), {}), 1);
    click();
    EXPECT_NE(toldAtTheEnd().find("is there already"), std::string::npos) << "the same second";
}

TEST_F(WholeBackup, OneDamagedMemoryOrRefusedTextIsNamedAndLeftOut) {
    bench.openPort();
    bench.ports.faults().refusesItems = {"KM3"};
    click();
    bench.clock.advanceUntil([&] { return program.progress.caption.get().starts_with("Backup 2"); }, 60'000);
    bench.ports.faults().eighthBit = true;
    bench.clock.advance(120);
    bench.ports.faults().eighthBit = false;
    const std::string text = toldAtTheEnd();
    for (const char* part :
         {"memory.mem: 24 channels\r\n", "list.mef: 24 channels,", "keyer.kem: 4 texts\r\n", "not complete",
          "memory 001, which came through damaged or as another channel\r\nkeyer KM3\r\n",
          "74 memory channels: they are empty"}) {
        EXPECT_NE(text.find(part), std::string::npos) << part << "\n" << text;
    }
    EXPECT_EQ(end, Outcome::Kind::Done);
    for (const char* file : {"/memory.mem", "/list.mef"}) {
        const std::string content = fakes::fileContent(program.backup.path() + file);
        EXPECT_EQ(content.substr(2, 3), "002") << content;
    }
}

TEST_F(WholeBackup, WhateverGoesWrongIsToldAndLeavesNothingHalf) {
    for (const int reading : {0, 1, 2, 3, 4, 5}) {
        SCOPED_TRACE(reading);
        brokenBy(reading, [this] { bench.ports.faults().deaf = true; });
        EXPECT_EQ(end, Outcome::Kind::NoAnswer);
        EXPECT_TRUE(program.link.PortOpen());
        bench.ports.faults() = {};
        EXPECT_NE(brokenBy(reading, [this] { program.link.closePort(); }).find("the port was closed"),
                  std::string::npos);
        EXPECT_EQ(end, Outcome::Kind::PortClosed);
        brokenBy(reading, [this] {
            bench.msgBox.foresee("not plugged in");
            bench.ports.unplug();
            bench.clock.advanceUntil([this] { return !program.link.PortOpen(); }, 1'000);
        });
        EXPECT_EQ(end, Outcome::Kind::PortClosed);
        bench.ports.plugIn();
        brokenBy(reading, [this] { bench.ports.faults().eighthBit = true; });
        EXPECT_EQ(end, Outcome::Kind::NoAnswer);
        expectItWorksAgain();
    }
    fakes::writeFile(dir, "a file where the folder should be");
    click();
    EXPECT_TRUE(toldAtTheEnd().starts_with("No backup was made.\r\n\r\n" + dir));
    EXPECT_EQ(end, Outcome::Kind::FileFailed);
}

TEST_F(WholeBackup, GivesTheLineToAnotherOperationOnlyWhenThePersonSaysSo) {
    struct Other {
        std::function<void()> start;
        std::function<bool()> running;
    };
    auto& band = program.bandStackWindow;
    auto& keyer = program.keyerWindow;
    const std::vector<Other> others = {
        {[&] { program.menuSave.mnu_Store_Click(); }, [&] { return program.menuSave.running(); }},
        {[&] { program.memory.saver.mnu_saveMem_Click(); }, [&] { return program.memory.saver.running(); }},
        {[&] { band.mnu_readBandStack_Click(); }, [&] { return band.reader().running(); }},
        {[&] { keyer.readKeyer(); }, [&] { return keyer.reader().running(); }}};
    bench.openPort();
    click();
    bench.clock.advance(5'000);
    bench.msgBox.foresee("Backup of the radio: Reading the menu, item 4", MsgAnswer::No);
    others[1].start();
    EXPECT_FALSE(others[1].running());
    EXPECT_NE(toldAtTheEnd().find("The backup is in"), std::string::npos);
    fs::remove_all(dir);

    bench.msgBox.whileShown = [this] {
        if (bench.msgBox.shown.back().text.ends_with("Stop it?")) bench.msgBox.foresee("", MsgAnswer::Yes);
    };
    int number = 0;
    for (const int reading : {0, 1, 2, 3, 4, 5}) {
        for (const auto& other : others) {
            SCOPED_TRACE(std::to_string(reading) + " " + std::to_string(number % 4));
            const std::string file = bench.folder.file("own" + std::to_string(number++));
            const auto text = brokenBy(reading, other.start);
            EXPECT_NE(text.find("it was stopped"), std::string::npos) << text;
            EXPECT_TRUE(program.progress.visible);
            if (number % 4 != 0) bench.fileDialog.choose(file);
            EXPECT_TRUE(bench.clock.advanceUntil([&] { return !other.running(); }, 200'000));
            EXPECT_FALSE(program.progress.visible);
            EXPECT_EQ(number % 4 != 0, fs::exists(file));
            EXPECT_EQ(keyer.hint.get(), "");
        }
    }
    brokenBy(2, [this] { program.memory.editor.cmd3_Click(); });
    EXPECT_FALSE(program.progress.visible) << "one channel needs none";
    expectItWorksAgain();
}

TEST_F(WholeBackup, IsNotBegunWhenTheLineIsNotFree) {
    const auto refused = [this](const char* why) {
        bench.msgBox.foresee(why);
        program.backupEntry.mnu_BackupRadio_Click();
        EXPECT_FALSE(end.has_value());
    };
    refused("The port is closed");
    program.eqWindow.Form_Load(bench.settings);
    program.eqWindow.toggleEqPort();
    refused("The equalizer has the port");
    bench.openPort();
    program.menuSave.mnu_Store_Click();
    bench.fileDialog.choose(dir);
    bench.msgBox.foresee("Reading the menu. Stop it?", MsgAnswer::No);
    program.backupEntry.mnu_BackupRadio_Click();
    EXPECT_TRUE(program.menuSave.running());
    program.link.closePort();
    bench.openPort();
    bench.fileDialog.whileShown = [this] { program.link.closePort(); };
    bench.fileDialog.choose(dir);
    refused("The port is closed");
    bench.fileDialog.whileShown = nullptr;
    bench.openPort();
    bench.fileDialog.cancel();
    program.backupEntry.mnu_BackupRadio_Click();
    click();
    bench.msgBox.foresee("Backup of the radio: Reading the radio's model. Stop it?", MsgAnswer::No);
    click();
    EXPECT_NE(toldAtTheEnd().find("The backup is in"), std::string::npos);
}

TEST_F(WholeBackup, IsNotHungUpByARadioThatOnlyTalksUnasked) {
    for (const std::string talk : {"FA14250000;", "\xF3\xE1"}) {
        auto chatter = bench.clock.makeTimer();
        chatter->setInterval(150);
        const Connection talking = chatter->tick.connect([&] {
            program.link.came.emit(talk);
            program.link.answers().take(talk);
        });
        for (const int reading : {1, 2, 3, 4, 5}) {
            SCOPED_TRACE(talk + " " + std::to_string(reading));
            brokenBy(reading, [&] {
                bench.ports.faults().deaf = true;
                chatter->setEnabled(true);
            });
            chatter->setEnabled(false);
            bench.ports.faults() = {};
        }
    }
    expectItWorksAgain();
}

TEST_F(WholeBackup, WaitsFiveSecondsForAnAnswerAndThirtyForAStepForward) {
    for (const bool talks : {false, true}) {
        auto chatter = bench.clock.makeTimer();
        chatter->setInterval(150);
        const Connection talking = chatter->tick.connect([&] { program.link.came.emit("FA14250000;"); });
        std::int64_t since = 0;
        brokenBy(4, [&] {
            bench.ports.faults().deaf = true;
            chatter->setEnabled(talks);
            since = bench.clock.now();
        });
        EXPECT_NEAR(static_cast<double>(bench.clock.now() - since), talks ? 30'000 : 5'000, 400);
        chatter->setEnabled(false);
        bench.ports.faults() = {};
    }
}

TEST_F(WholeBackup, TheEndOfTheProgramIsTold) {
    bench.openPort();
    click();
    bench.clock.advance(30'000);
    bench.msgBox.foresee("Stop it?", MsgAnswer::No);
    EXPECT_FALSE(program.end());
    EXPECT_TRUE(program.backup.running());
    bench.msgBox.foresee("Stop it?", MsgAnswer::Yes);
    bench.msgBox.foresee("The backup is not finished.");
    EXPECT_TRUE(program.end());
    EXPECT_TRUE(fs::exists(dir + "/korvex-2026-11-22-234254.incomplete"));
    const auto sent = bench.ports.cable.line.commandsHeard;
    bench.clock.advance(10'000);
    EXPECT_EQ(bench.ports.cable.line.commandsHeard, sent);
}

TEST_F(WholeBackup, GoesOnWithOneThatWasCutOffWhenThePersonSaysSo) {
    bench.openPort();
    click();
    bench.clock.advance(30'000);
    bench.timeOfDay = "2026-11-23 08:00:01";
    program.progress.cancelled.emit();
    EXPECT_NE(toldAtTheEnd().find("korvex-2026-11-22-234254.incomplete"), std::string::npos);
    bench.msgBox.foresee("An earlier backup was cut off", MsgAnswer::Yes);
    click();
    const auto since = bench.clock.now();
    EXPECT_NE(toldAtTheEnd().find("/korvex-2026-11-22-234254\r\n"), std::string::npos);
    EXPECT_LT(bench.clock.now() - since, 100'000);
    EXPECT_EQ(end, Outcome::Kind::Done);
    EXPECT_EQ(std::distance(fs::directory_iterator(dir), {}), 1);
    EXPECT_EQ(program.link.pace, Pace::Every100Ms);

    bench.timeOfDay = "2026-11-23 09:00:00";
    click();
    bench.clock.advance(30'000);
    program.progress.cancelled.emit();
    toldAtTheEnd();
    bench.timeOfDay = "2026-11-23 09:00:01";
    bench.msgBox.foresee("An earlier backup was cut off", MsgAnswer::No);
    click();
    EXPECT_NE(toldAtTheEnd().find("/korvex-2026-11-23-090001\r\n"), std::string::npos);
}

}  // namespace
}  // namespace korvex
