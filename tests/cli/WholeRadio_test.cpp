#include <algorithm>
#include <map>

#include "cli/BackupTest.h"
#include "fakes/WholeRestore.h"
#include "radio/StateText.h"

namespace korvex::cli {
namespace {

/// Another owner's radio: everything differs somewhere, and its registers were left at other places.
RadioState otherRadio() {
    RadioState state = ownersRadio();
    state.menu.at(20) = state.menu.at(20) == "0" ? "1" : "0";
    state.menu.at(28) = state.menu.at(28) == "0" ? "3" : "0";
    state.menu.at(29) = state.menu.at(29) == "0" ? "1" : "0";
    state.menu.at(42) = "007";
    state.menu.at(126) = "-20";
    state.memories.at(1) = "07000000+000000300000";
    state.memories.at(2).reset();
    state.memories.at(60) = "21000000+000000300000";
    state.memories.at(100) = "21000000+000000300000";
    for (auto& text : state.keyer) text = "QRX";
    for (auto& registers : state.registers) {
        registers["MD0"] = "2";
        registers["NB0"] = "0";
        registers["AN5"] = "1";
        registers["RF0"] = "1";
    }
    state.lastUsed.fill(1);
    state.radio["FB"] = "14000000";
    state.radio["KR"] = "0";
    state.radio["MG"] = "001";
    return state;
}

struct WholeRadio : BackupTest {
    bool isEmpty() const { return !std::filesystem::exists(dir) || std::filesystem::is_empty(dir); }
};

TEST_F(WholeRadio, BackupHasTheFilesOfEachSaveAndAPageToRead) {
    ASSERT_EQ(bench.run({"-s", "38400,n,8,2", "backup", dir}), ExitCode::Done);
    for (const std::string kind : {"menu.mnu", "memory.mem", "list.mef", "keyer.kem"}) {
        const std::string own = bench.folder.file(kind);
        EXPECT_EQ(bench.run({"save", kind.substr(0, kind.find('.')), own}), ExitCode::Done);
        EXPECT_EQ(fakes::fileContent(own), saved(kind)) << kind;
    }
    EXPECT_EQ(bench.run({"compare", file("bandstack.bsr"), "radio"}), ExitCode::Done);
    const std::string summary = saved("summary.txt");
    for (const std::string part :
         {"2026-11-22 23:42:54", "ID0251; (FT-2000)", "Port   Simulated FT-2000, 38400,n,8,2", "149 menu items",
          "25 channels\n", "33 registers", "74 memory channels: they are empty"}) {
        EXPECT_NE(summary.find(part), std::string::npos) << part << "\n" << summary;
    }
    const std::string equalizer = saved("equalizer.txt");
    EXPECT_EQ(std::count(equalizer.begin(), equalizer.end(), '\n'), 21);
    EXPECT_NE(bench.run({"backup", dir}), ExitCode::Done) << "a backup of the same second was overwritten";
}

TEST_F(WholeRadio, TheWindowsMakeTheSameBackup) {
    ASSERT_EQ(bench.run({"backup", dir}), ExitCode::Done);
    fakes::ProgramBench<SimulatedPorts> windows;
    writeSetting(windows.settings, keys::checkProposed, true);
    windows.openPort();
    windows.fileDialog.choose(windows.folder.path());
    windows.msgBox.foresee("The backup is in");
    windows.program.backupEntry.mnu_BackupRadio_Click();
    windows.clock.advance(200'000);
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(windows.program.backup.path())) {
        EXPECT_EQ(fakes::fileContent(entry.path()), saved(entry.path().filename())) << entry.path();
        ++files;
    }
    EXPECT_EQ(files, 8);
}

/// Cut off anywhere, it keeps what was read, and another one asks for the rest only; the files are those of one go.
TEST_F(WholeRadio, ABackupThatWasCutOffIsGoneOnWith) {
    auto& faults = bench.ports.faults();
    const auto linesSent = [this] { return std::count(bench.sent.begin(), bench.sent.end(), '\n'); };
    const std::string before = stateText(bench.ports.radio().state);
    ASSERT_EQ(bench.run({"backup", dir}), ExitCode::Done);
    EXPECT_EQ(stateText(bench.ports.radio().state), before) << "nothing differs from how it was found";
    const auto inOneGo = linesSent();
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(backup)) {
        files[entry.path().filename()] = fakes::fileContent(entry.path());
    }
    for (const std::string pace : {"answered", "100"}) {
        for (const int commands : {1, 100, 160, 300, 620, 1000, 1040}) {
            SCOPED_TRACE(pace + " " + std::to_string(commands));
            std::filesystem::remove_all(dir);
            (commands % 20 == 0 ? faults.unplugged : faults.deafAfter) = commands;
            const auto broken = bench.run({"--pace", pace, "backup", dir});
            EXPECT_EQ(broken, commands % 20 == 0 ? ExitCode::Port : ExitCode::Answers) << bench.err.str();
            faults = {};
            bench.ports.plugIn();
            if (commands == 1 || (pace == "100" && commands == 100)) {
                EXPECT_TRUE(isEmpty()) << bench.err.str();
                continue;
            }
            EXPECT_NE(bench.err.str().find("what was read is kept in " + backup + ".incomplete"), std::string::npos);
            bench.timeOfDay = "2026-11-23 08:00:01";
            ASSERT_EQ(bench.run({"--pace", pace, "backup", "--resume", dir}), ExitCode::Done) << bench.err.str();
            bench.timeOfDay = "2026-11-22 23:42:54";
            EXPECT_LT(linesSent(), inOneGo - (pace == "answered" ? commands - 180 : 100)) << "read again";
            EXPECT_EQ(saved("menu.mnu"), files["menu.mnu"]);
            EXPECT_EQ(saved("memory.mem"), files["memory.mem"]);
            EXPECT_EQ(saved("list.mef"), files["list.mef"]);
            EXPECT_EQ(saved("keyer.kem"), files["keyer.kem"]);
            EXPECT_EQ(bench.run({"compare", file("bandstack.bsr"), "radio"}), ExitCode::Done) << bench.out.str();
            EXPECT_EQ(std::distance(std::filesystem::directory_iterator(backup), {}), 8);
            const std::string summary = saved("summary.txt");
            EXPECT_TRUE(summary.starts_with("Backup of 2026-11-22 23:42:54")) << summary;
            EXPECT_NE(summary.find("gone on with on 2026-11-23 08:00:01"), std::string::npos) << summary;
        }
    }
}

TEST_F(WholeRadio, AnotherRadioIsNotGoneOnWith) {
    bench.ports.faults().deafAfter = 300;
    EXPECT_EQ(bench.run({"backup", dir}), ExitCode::Answers);
    bench.ports.faults() = {};
    const RadioState before = bench.ports.radio().state;
    bench.ports.radio().state = otherRadio();
    bench.ports.radio().state.menu.at(1) = before.menu.at(1) == "0" ? "1" : "0";
    EXPECT_EQ(bench.run({"backup", "--resume", backup + ".incomplete/"}), ExitCode::Answers);
    EXPECT_NE(bench.err.str().find("menu 001"), std::string::npos) << bench.err.str();
    EXPECT_NE(bench.err.str().find("A new backup reads everything."), std::string::npos) << bench.err.str();
    bench.ports.radio().state = before;
    EXPECT_EQ(bench.run({"backup", "--resume", dir}), ExitCode::Done) << "what was read has not been lost";
    EXPECT_EQ(bench.run({"backup", "--resume", dir}), ExitCode::File) << bench.err.str();
    EXPECT_NE(bench.err.str().find("there is no unfinished backup in"), std::string::npos);
}

TEST_F(WholeRadio, WhatCameDamagedIsNotKept) {
    auto& faults = bench.ports.faults();
    faults.eighthBit = true;
    EXPECT_NE(bench.run({"backup", dir}), ExitCode::Done);
    faults = {};
    bench.meanwhile = [&](Session&) { bench.clock.after(60'000, [&] { faults.eighthBit = true; }); };
    EXPECT_EQ(bench.run({"--pace", "100", "backup", dir}), ExitCode::Answers);
    EXPECT_NE(bench.err.str().find("band stack values came through damaged"), std::string::npos) << bench.err.str();
    faults = {};
    bench.meanwhile = nullptr;
    EXPECT_EQ(bench.run({"backup", "--resume", dir}), ExitCode::Done) << bench.err.str();
    bench.timeOfDay = "2026-11-23 08:00:01";
    bench.meanwhile = [this](Session& session) { bench.clock.after(40'000, [&session] { session.interrupt(); }); };
    EXPECT_EQ(bench.run({"--pace", "100", "backup", dir}), ExitCode::Interrupted);
    EXPECT_TRUE(std::filesystem::exists(dir + "/korvex-2026-11-23-080001.incomplete/" + journalName));
    bench.meanwhile = nullptr;
    fakes::writeFile(bench.folder.file("file"), "");
    EXPECT_EQ(bench.run({"backup", bench.folder.file("file")}), ExitCode::File);
}

/// Whatever the radio refuses, the backup has the rest, names what is missing and says that it is not complete.
TEST_F(WholeRadio, WhatTheRadioRefusesToTellIsLeftOutAndNamed) {
    const std::vector<std::pair<std::string, std::string>> refusals = {{"EX042", "menu 042"},
                                                                       {"EX", ""},
                                                                       {"KM2", "keyer KM2"},
                                                                       {"KM", "keyer KM5"},
                                                                       {"BS02", "band stack of band 02"},
                                                                       {"BS", ""},
                                                                       {"NB0", "bandstack 05.2 NB0"},
                                                                       {"AN0", "bandstack 10.1 AN0"}};
    for (const auto& [refused, named] : refusals) {
        SCOPED_TRACE(refused);
        bench.ports.faults().refusesItems = {refused};
        EXPECT_EQ(bench.run({"backup", dir}), ExitCode::Answers);
        bench.ports.faults() = {};
        if (named.empty()) {
            EXPECT_EQ(isEmpty(), refused == "EX") << "the radio told nothing of a whole kind";
            std::filesystem::remove_all(dir);
            continue;
        }
        EXPECT_EQ(bench.out.str(), backup + "\n") << bench.err.str();
        EXPECT_NE(bench.err.str().find("not complete"), std::string::npos) << bench.err.str();
        EXPECT_NE(saved("summary.txt").find("not complete"), std::string::npos);
        EXPECT_NE(saved("summary.txt").find(named + "\n"), std::string::npos) << saved("summary.txt");
        const ExitCode restored = named == "keyer KM2" ? ExitCode::Different : ExitCode::Done;
        EXPECT_EQ(bench.run({"restore-all", "--no-safety-copy", backup}), restored) << bench.err.str();
        EXPECT_EQ(said("KM2: left alone, wanted \"\", the radio has \"DE DL1XYZ\" (an empty text"),
                  restored != ExitCode::Done);
        std::filesystem::remove_all(backup);
    }
    bench.ports.radio().state.keyer.at(2) = "?";  // no refusal
    for (const std::string harmless : {"ID", "MR"}) {
        bench.ports.faults().refusesItems = {harmless};
        EXPECT_EQ(bench.run({"backup", dir}), ExitCode::Done) << harmless << bench.err.str();
        std::filesystem::remove_all(backup);
    }
}

TEST_F(WholeRadio, ATextThatNoFileCanHoldIsLeftOutAndNamed) {
    bench.ports.radio().state.keyer.at(2) = "A|B";
    const std::string why = "keyer KM2, which cannot be kept in a file: \"|\" separates the columns of the file\n";
    EXPECT_EQ(bench.run({"backup", dir}), ExitCode::Answers);
    EXPECT_NE(saved("summary.txt").find(why), std::string::npos) << saved("summary.txt");
    EXPECT_EQ(bench.run({"restore-all", backup}), ExitCode::Done) << bench.err.str();
    EXPECT_EQ(bench.ports.radio().state.keyer.at(2), "A|B");
    EXPECT_EQ(bench.run({"save", "keyer", "-"}), ExitCode::Answers);
    EXPECT_EQ(bench.standardOutput.str(), "");
}

TEST_F(WholeRadio, RestoreTellsOfEachItemWhetherItTook) {
    ASSERT_EQ(bench.run({"backup", dir}), ExitCode::Done);
    bench.ports.radio().state = otherRadio();
    bench.ports.faults().refusesItems = {"EX0420", "MW001", "KM2D", "NB0"};
    EXPECT_EQ(bench.run({"restore", "memory", file("memory.mem")}), ExitCode::Different);
    EXPECT_TRUE(said("001: refused, wanted \"14074000+000000C00000\", the radio has \"07000000+000000300000\"\n"));
    EXPECT_TRUE(
        said("060: left alone, wanted \"\", the radio has \"21000000+000000300000\" (the file says nothing of it)"));
    EXPECT_TRUE(said("memory: 1 left alone, 1 refused, 23 unchanged, 1 written\n")) << bench.out.str();
    EXPECT_EQ(bench.run({"restore", "list", "--verify", file("list.mef")}), ExitCode::Different);
    EXPECT_TRUE(said("002: unchanged\n")) << bench.out.str();
    bench.ports.faults() = {};
    bench.ports.faults().forgetsWrite = 2;
    EXPECT_EQ(bench.run({"--pace", "100", "restore", "keyer", file("keyer.kem")}), ExitCode::Different);
    EXPECT_TRUE(said("KM2: different, wanted \"DE DL1XYZ\", the radio has \"QRX\"\n")) << bench.out.str();
    EXPECT_TRUE(said("KM4: left alone, wanted \"\", the radio has \"QRX\"")) << bench.out.str();
    bench.ports.faults() = {};
    EXPECT_EQ(bench.run({"restore", "bandstack", file("bandstack.bsr")}), ExitCode::Done) << bench.out.str();
    EXPECT_EQ(bench.run({"restore", "menu", file("menu.mnu")}), ExitCode::Different) << "the CAT settings differ";
    EXPECT_TRUE(said("028: left alone, wanted \"3\", the radio has \"0\" (the radio's own CAT settings"))
        << bench.out.str();
    EXPECT_EQ(bench.run({"restore", "menu", "--with-cat", file("menu.mnu")}), ExitCode::Done) << bench.out.str();
    EXPECT_TRUE(bench.sent.ends_with("EX0283;\n")) << bench.sent;
    bench.ports.faults().deafAfter = 100;
    EXPECT_EQ(bench.run({"restore", "menu", file("menu.mnu")}), ExitCode::Answers);
    EXPECT_NE(bench.err.str().find("Nothing was written"), std::string::npos) << bench.err.str();
}

TEST_F(WholeRadio, RestoreWritesOnlyWhatDiffersAndKeepsWhatTheRadioHad) {
    ASSERT_EQ(bench.run({"backup", dir}), ExitCode::Done);
    const std::string saved = stateText(bench.ports.radio().state);
    EXPECT_EQ(bench.run({"restore-all", backup}), ExitCode::Done) << bench.out.str();
    EXPECT_TRUE(
        said("menu: 149 unchanged\nmemory: 25 unchanged\nscanlimits: 2 unchanged\nbandstack: 726 unchanged\n"
             "keyer: 5 unchanged\n"))
        << bench.out.str();
    bench.walkBandsHome();
    EXPECT_EQ(fakes::asWalked(stateText(bench.ports.radio().state)), fakes::asWalked(saved));
    bench.ports.radio().state.menu.at(42) = "007";
    auto& blanker = bench.ports.radio().state.registers.at(7)["NB0"];
    blanker = blanker == "1" ? "0" : "1";
    EXPECT_EQ(bench.run({"restore-all", backup}), ExitCode::Done) << bench.out.str();
    EXPECT_NE(bench.err.str().find("menu: 1 of 149 items are written: 042\n"), std::string::npos) << bench.err.str();
    EXPECT_TRUE(said("menu: 148 unchanged, 1 written\n")) << bench.out.str();
    EXPECT_TRUE(said("bandstack: 660 unchanged, 66 written\n")) << bench.out.str();
    const std::string copy = backup + "-before-restore";
    EXPECT_EQ(bench.run({"compare", file("menu.mnu"), copy + "/menu.mnu"}), ExitCode::Different);
    EXPECT_EQ(bench.run({"restore-all", "--json", copy}), ExitCode::Done) << bench.err.str();
    EXPECT_EQ(bench.ports.radio().state.menu.at(42), "007") << "the way back";
    EXPECT_TRUE(bench.out.str().starts_with("{\n  \"result\": \"done\",\n  \"asTheFilesSay\": true,"))
        << bench.out.str();
    EXPECT_TRUE(said("\"item\": \"042\",\n          \"result\": \"written\"")) << bench.out.str();
}

/// Broken off by whatever cause, it says what the radio holds; begun again, it writes the rest.
TEST_F(WholeRadio, ARestoreThatIsBrokenOffGoesOnFromThere) {
    ASSERT_EQ(bench.run({"backup", dir}), ExitCode::Done);
    const RadioState saved = bench.ports.radio().state;
    for (auto channel : {1, 2, 3, 4, 5})
        bench.ports.radio().state.memories.at(static_cast<std::size_t>(channel)) = "07000000+000000300000";
    bench.ports.faults().unplugged = 2 + 99 + 74 + 3;
    EXPECT_EQ(bench.run({"--pace", "100", "restore", "memory", file("memory.mem")}), ExitCode::Port);
    bench.ports.faults() = {};
    bench.ports.plugIn();
    for (const char* part :
         {"memory: The port was closed at item 3 of 5; items 1 to 2 are in the radio.",
          "The same restore begun again writes what is missing.", "What the radio had before is in"}) {
        EXPECT_NE(bench.err.str().find(part), std::string::npos) << part << "\n" << bench.err.str();
    }
    EXPECT_EQ(bench.run({"restore", "memory", file("memory.mem")}), ExitCode::Done) << bench.out.str();
    EXPECT_TRUE(said("memory: 23 unchanged, 2 written\n")) << bench.out.str();
    EXPECT_NE(bench.err.str().find("an earlier restore did not come to its end; what the radio had before it is in " +
                                   backup + "/korvex"),
              std::string::npos)
        << bench.err.str();
    EXPECT_EQ(bench.ports.radio().state.memories, saved.memories);
    bench.meanwhile = [this](Session& session) { bench.clock.after(3'000, [&session] { session.interrupt(); }); };
    EXPECT_EQ(bench.run({"restore", "menu", file("menu.mnu")}), ExitCode::Interrupted);
    bench.meanwhile = nullptr;
}

TEST_F(WholeRadio, RestoreLooksBeforeItWrites) {
    bench.checksum = [](std::string_view content) { return std::to_string(std::hash<std::string_view>()(content)); };
    ASSERT_EQ(bench.run({"backup", dir}), ExitCode::Done);
    const auto refused = [this](const std::string& why, const std::string& folder) {
        EXPECT_EQ(bench.run({"restore-all", folder}), ExitCode::File);
        EXPECT_NE(bench.err.str().find(why), std::string::npos) << bench.err.str();
        EXPECT_EQ(bench.sent, "");
    };
    const std::string keyer = saved("keyer.kem");
    fakes::writeFile(file("keyer.kem"), keyer + "\r\n");
    refused("keyer.kem is not as it was saved", backup);
    fakes::writeFile(file("keyer.kem"), keyer);
    std::filesystem::copy(backup, backup + ".incomplete");
    refused("is a backup that was cut off", backup + ".incomplete");
    EXPECT_EQ(bench.run({"restore-all", backup}), ExitCode::Done) << bench.err.str();

    const auto radioRefused = [this](const std::string& why) {
        bench.ports.radio().state.menu.at(20) = "9";
        EXPECT_EQ(bench.run({"restore", "menu", file("menu.mnu")}), ExitCode::Answers);
        EXPECT_NE(bench.err.str().find(why), std::string::npos) << bench.err.str();
        EXPECT_EQ(bench.ports.radio().state.menu.at(20), "9");
    };
    bench.ports.radio().state.menu.at(42) = "0007";
    radioRefused("The radio tells menu 042 with another number of characters than the file (1 such items).");
    fakes::writeFile(bench.folder.file("blocked"), "");
    EXPECT_EQ(bench.run({"restore", "menu", "--safety-copy", bench.folder.file("blocked"), file("menu.mnu")}),
              ExitCode::File);
    EXPECT_EQ(bench.sent, "");
}

TEST_F(WholeRadio, DryRunSaysWhatWouldBeSentWithoutARadio) {
    ASSERT_EQ(bench.run({"backup", dir}), ExitCode::Done);
    for (const std::string name : {"menu.mnu", "memory.mem", "list.mef", "bandstack.bsr", "keyer.kem"}) {
        const std::string kind = name.substr(0, name.find('.'));
        ASSERT_EQ(bench.run({"--pace", "100", "restore", kind, "--all", "--no-safety-copy", file(name)}),
                  ExitCode::Done)
            << kind;
        std::string sent = bench.sent;
        if (kind == "bandstack") sent.erase(0, std::string("FA;\nMD0;\n").size());  // where it stands
        // What is sent for the antennas depends on how the radio stands.
        for (const std::string query : {"AN0;\n", "AN05;\n"}) {
            for (auto at = sent.find(query); at != std::string::npos; at = sent.find(query))
                sent.erase(at, query.size());
        }
        bench.ports.unplug();
        EXPECT_EQ(bench.run({"restore", kind, "--dry-run", file(name)}), ExitCode::Done);
        EXPECT_EQ(bench.out.str(), sent.substr(0, bench.out.str().size())) << kind;
        bench.ports.plugIn();
    }
    EXPECT_EQ(bench.run({"restore-all", "--dry-run", backup}), ExitCode::Done);
    EXPECT_TRUE(said("EX031")) << bench.out.str();
    EXPECT_FALSE(said("EX028"));
    EXPECT_EQ(bench.sent, "");
    EXPECT_EQ(bench.run({"restore-all", "--dry-run", "--with-cat", backup}), ExitCode::Done);
    EXPECT_TRUE(bench.out.str().ends_with("EX0291;\nEX0300;\nEX0283;\n")) << bench.out.str();
}

TEST_F(WholeRadio, ComparesItemByItem) {
    ASSERT_EQ(bench.run({"backup", dir}), ExitCode::Done);
    const std::string menu = file("menu.mnu");
    EXPECT_EQ(bench.run({"compare", menu, menu}), ExitCode::Done);
    EXPECT_EQ(bench.out.str(), "");
    bench.ports.radio().state.menu.at(42) = "007";
    EXPECT_EQ(bench.run({"compare", menu, "radio"}), ExitCode::Different);
    EXPECT_TRUE(said("042: \"")) << bench.out.str();
    EXPECT_TRUE(said(" | \"007\"\n")) << bench.out.str();
    EXPECT_EQ(bench.out.str().find('\n'), bench.out.str().size() - 1) << bench.out.str();

    std::string list = saved("list.mef");
    list.insert(list.find("\r\n"), "beacon");
    const std::string remarked = bench.folder.file("mine.mef");
    fakes::writeFile(remarked, list);
    EXPECT_EQ(bench.run({"compare", remarked, file("list.mef")}), ExitCode::Different);
    EXPECT_EQ(bench.run({"compare", "radio", remarked}), ExitCode::Done) << bench.out.str();
    EXPECT_EQ(bench.run({"compare", "--kind", "memory", file("memory.mem"), file("keyer.kem")}), ExitCode::File);
    EXPECT_EQ(bench.run({"compare", file("summary.txt"), "radio"}), ExitCode::Usage);
    EXPECT_EQ(bench.run({"compare", menu, bench.folder.file("none.mnu")}), ExitCode::File);
}

TEST_F(WholeRadio, NothingIsSentWhenOneFileIsBad) {
    ASSERT_EQ(bench.run({"backup", dir}), ExitCode::Done);
    fakes::writeFile(file("bandstack.bsr"), "||BS00;|\r\n|AC;|TX1;|\r\n|\r\n");
    EXPECT_EQ(bench.run({"restore-all", backup}), ExitCode::File);
    EXPECT_EQ(bench.sent, "");
    EXPECT_EQ(bench.run({"restore-all", dir}), ExitCode::File) << "a folder without a backup";
    fakes::writeFile(file("menu.mnu"), "EX0421;\r\n");
    EXPECT_EQ(bench.run({"restore-all", backup}), ExitCode::File);
    EXPECT_EQ(bench.sent, "");
    EXPECT_EQ(bench.ports.radio().timesKeyed, 0);
}

}  // namespace
}  // namespace korvex::cli
