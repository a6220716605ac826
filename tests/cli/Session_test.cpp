#include <algorithm>
#include <gtest/gtest.h>

#include "cli/CliBench.h"

namespace korvex::cli {
namespace {

TEST(Session, SavesAndRestoresTheMenu) {
    CliBench bench;
    const std::string file = bench.folder.file("shack.mnu");
    EXPECT_EQ(bench.run({"-s", "38400,n,8,2", "save", "menu", file}), ExitCode::Done);
    const std::string saved = fakes::fileContent(file);
    EXPECT_EQ(std::count(saved.begin(), saved.end(), '\n'), 149);
    EXPECT_EQ(bench.run({"--demo", "restore", "menu", file}), ExitCode::Done);
    EXPECT_NE(bench.err.str().find("menu: nothing of 149 items differs\n"), std::string::npos) << bench.err.str();
    EXPECT_EQ(bench.out.str(), "menu: 149 unchanged\n");
    EXPECT_EQ(bench.sent.find("EX0283"), std::string::npos);
}

TEST(Session, SendsACommandAndPrintsTheAnswer) {
    CliBench bench;
    EXPECT_EQ(bench.run({"send", "ID;EX029;"}), ExitCode::Done);
    EXPECT_EQ(bench.out.str(), "ID0251;\nEX0291;\n");
    EXPECT_EQ(bench.run({"send", "EX999;"}), ExitCode::Answers);
    bench.ports.faults().slowMs = 500;
    EXPECT_EQ(bench.run({"send", "ID;"}), ExitCode::Done);
    EXPECT_EQ(bench.out.str(), "ID0251;\n");
}

TEST(Session, EachTroubleHasItsExitCodeAndLeavesNoFile) {
    CliBench bench;
    const std::string file = bench.folder.file("shack.mnu");
    bench.ports.faults().deaf = true;
    EXPECT_EQ(bench.run({"save", "menu", file}), ExitCode::Answers);
    bench.ports.faults() = {};
    bench.ports.faults().deafAfter = 60;
    EXPECT_EQ(bench.run({"save", "menu", file}), ExitCode::Answers);
    bench.ports.faults() = {};
    bench.ports.faults().refusesItems = {"EX042"};
    EXPECT_EQ(bench.run({"save", "menu", file}), ExitCode::Answers);
    EXPECT_NE(bench.err.str().find("only 148 of 149"), std::string::npos);
    bench.ports.faults() = {};
    bench.ports.faults().unplugged = 70;
    EXPECT_EQ(bench.run({"save", "menu", file}), ExitCode::Port);
    bench.ports.plugIn();
    bench.ports.faults() = {};
    bench.meanwhile = [&bench](Session& session) { bench.clock.after(4'000, [&session] { session.interrupt(); }); };
    EXPECT_EQ(bench.run({"save", "menu", file}), ExitCode::Interrupted);
    bench.meanwhile = nullptr;
    EXPECT_FALSE(std::filesystem::exists(file));

    EXPECT_EQ(bench.run({"restore", "menu", file}), ExitCode::File);
    EXPECT_EQ(bench.run({"save", "menu", bench.folder.file("no/such/folder.mnu")}), ExitCode::File);
    EXPECT_EQ(bench.run({"save", "toast", file}), ExitCode::Usage);
    fakes::writeFile(file, "EX0421;\r\nTX1;\r\n");
    EXPECT_EQ(bench.run({"restore", "menu", file}), ExitCode::File);
    fakes::writeFile(file, "EX0421;\r\n");
    EXPECT_EQ(bench.run({"restore", "menu", file}), ExitCode::File);
    EXPECT_NE(bench.err.str().find("it holds 1 of 149 menu items"), std::string::npos);
    EXPECT_EQ(bench.sent, "");
    EXPECT_EQ(bench.run({"restore", "menu", "--force", file}), ExitCode::Different)
        << "one digit is none of its values";
    EXPECT_EQ(bench.ports.radio().timesKeyed, 0);
}

TEST(Session, CarriesMemoriesAndTheirListToAnotherRadioByteForByte) {
    CliBench bench;
    auto& memories = bench.ports.radio().state.memories;
    memories[1].reset();
    const auto inTheRadio = memories;
    for (const std::string kind : {"memory", "list"}) {
        const std::string first = bench.folder.file("first." + kind);
        const std::string second = bench.folder.file("second." + kind);
        EXPECT_EQ(bench.run({"save", kind, first}), ExitCode::Done);
        for (std::size_t channel = 1; channel <= 99; ++channel) memories.at(channel).reset();
        EXPECT_EQ(bench.run({"restore", kind, first}), ExitCode::Done);
        EXPECT_EQ(memories, inTheRadio) << kind;
        EXPECT_EQ(bench.run({"save", kind, second}), ExitCode::Done);
        EXPECT_EQ(fakes::fileContent(second), fakes::fileContent(first));
        const std::string saved = fakes::fileContent(first);
        EXPECT_EQ(std::count(saved.begin(), saved.end(), '\n'), kind == "memory" ? 24 : 25);
        EXPECT_EQ(bench.err.str(), "korvexctl: refused or empty: 75 channels\n");

        bench.ports.faults().refusesItems = {"MR"};  // too busy to tell of any
        EXPECT_EQ(bench.run({"save", kind, second}), ExitCode::Answers);
        EXPECT_NE(bench.err.str().find("second." + kind + " holds something"), std::string::npos) << bench.err.str();
        EXPECT_EQ(fakes::fileContent(second), saved);
        bench.ports.faults().unplugged = 50;
        EXPECT_EQ(bench.run({"save", kind, bench.folder.file("none")}), ExitCode::Port);
        bench.ports.plugIn();
        bench.ports.faults() = {};
        EXPECT_FALSE(std::filesystem::exists(bench.folder.file("none")));
        EXPECT_EQ(bench.run({"restore", kind, bench.folder.file("none")}), ExitCode::File);
        bench.err.str("");
    }
}

TEST(Session, SavesAndRestoresTheBandStackAndGivesASilentRadioUp) {
    CliBench bench;
    const std::string file = bench.folder.file("shack.bsr");
    EXPECT_EQ(bench.run({"-s", "38400,n,8,2", "save", "bandstack", file}), ExitCode::Done);
    const std::string saved = fakes::fileContent(file);
    EXPECT_EQ(std::count(saved.begin(), saved.end(), '\n'), 27);
    EXPECT_EQ(bench.run({"-s", "38400,n,8,2", "restore", "bandstack", file}), ExitCode::Done);
    EXPECT_EQ(bench.run({"restore", "bandstack", bench.folder.file("missing.bsr")}), ExitCode::File);
    fakes::writeFile(bench.folder.file("half.bsr"), saved.substr(0, saved.find("\n|ML0;") + 1));
    EXPECT_EQ(bench.run({"restore", "bandstack", bench.folder.file("half.bsr")}), ExitCode::File);
    EXPECT_EQ(bench.sent, "");
    EXPECT_NE(bench.err.str().find("33 of 33 registers are incomplete: 00.1 to 10.3."), std::string::npos);
    EXPECT_EQ(bench.run({"--force", "restore", "bandstack", bench.folder.file("half.bsr")}), ExitCode::Done);
    bench.ports.faults().deafAfter = 100;
    EXPECT_EQ(bench.run({"save", "bandstack", bench.folder.file("other.bsr")}), ExitCode::Answers);
    EXPECT_FALSE(std::filesystem::exists(bench.folder.file("other.bsr")));
}

TEST(Session, SavesAndRestoresTheKeyerTexts) {
    CliBench bench;
    const std::string file = bench.folder.file("shack.kem");
    EXPECT_EQ(bench.run({"save", "keyer", file}), ExitCode::Done);
    const std::string saved = fakes::fileContent(file);
    EXPECT_NE(saved.find("|KM5;|"), std::string::npos);
    bench.ports.radio().answer("KM1QRL?;");
    EXPECT_EQ(bench.run({"restore", "keyer", file}), ExitCode::Done);
    EXPECT_EQ(bench.run({"save", "keyer", bench.folder.file("again.kem")}), ExitCode::Done);
    EXPECT_EQ(fakes::fileContent(bench.folder.file("again.kem")), saved);
    bench.ports.faults().deafAfter = 3;
    EXPECT_EQ(bench.run({"save", "keyer", bench.folder.file("other.kem")}), ExitCode::Answers);
    EXPECT_FALSE(std::filesystem::exists(bench.folder.file("other.kem")));
}

TEST(Session, SavesToStandardOutputAndRestoresFromStandardInput) {
    CliBench bench;
    const std::string file = bench.folder.file("shack.kem");
    EXPECT_EQ(bench.run({"save", "keyer", file}), ExitCode::Done);
    EXPECT_EQ(bench.run({"save", "keyer", "-"}), ExitCode::Done);
    const std::string saved = bench.standardOutput.str();
    EXPECT_EQ(saved, fakes::fileContent(file));
    EXPECT_EQ(bench.out.str() + bench.err.str(), "");
    bench.ports.radio().answer("KM1QRL?;");
    bench.standardInput.str(saved);
    EXPECT_EQ(bench.run({"compare", "--kind", "keyer", "-", "radio"}), ExitCode::Different);
    EXPECT_EQ(bench.out.str(), "KM1: \"CQ CQ CQ DE DL1XYZ DL1XYZ PSE K\" | \"QRL?\"\n");
    EXPECT_EQ(bench.run({"restore", "keyer", "-"}), ExitCode::File) << "it has been read already";
    bench.standardInput.clear();
    bench.standardInput.str(saved);
    EXPECT_EQ(bench.run({"restore", "--verify", "--no-safety-copy", "keyer", "-"}), ExitCode::Done) << bench.err.str();
    EXPECT_NE(bench.out.str().find("KM1: written\nKM2: unchanged\n"), std::string::npos) << bench.out.str();
    EXPECT_EQ(bench.run({"compare", "--kind", "keyer", "-", "-"}), ExitCode::Usage);
    bench.standardOutput.setstate(std::ios::badbit);
    EXPECT_EQ(bench.run({"save", "keyer", "-"}), ExitCode::File);
}

TEST(Session, SaysNothingBesideErrorsOrEverythingForPrograms) {
    CliBench bench;
    const std::string file = bench.folder.file("shack.kem");
    EXPECT_EQ(bench.run({"--json", "save", "keyer", file}), ExitCode::Done);
    EXPECT_NE(bench.out.str().find("\"item\": \"KM2\",\n      \"value\": \"DE DL1XYZ\""), std::string::npos)
        << bench.out.str();
    bench.ports.radio().answer("KM1\"QRL?\";");
    EXPECT_EQ(bench.run({"--json", "compare", file, "radio"}), ExitCode::Different);
    for (const char* part : {"\"alike\": false", "\"left\": \"CQ CQ CQ ", R"("right": "\"QRL?\"")"}) {
        EXPECT_NE(bench.out.str().find(part), std::string::npos) << part << bench.out.str();
    }
    EXPECT_EQ(bench.run({"-q", "compare", file, "radio"}), ExitCode::Different);
    EXPECT_EQ(bench.out.str() + bench.err.str(), "");
    EXPECT_EQ(bench.run({"--quiet", "restore", "keyer", file}), ExitCode::Done);
    EXPECT_EQ(bench.out.str() + bench.err.str(), "");
    bench.ports.unplug();
    EXPECT_EQ(bench.run({"-q", "save", "keyer", file}), ExitCode::Port);
    EXPECT_EQ(bench.err.str(), "korvexctl: no port is set; korvexctl ports lists them, -r names one\n");
}

TEST(Session, ARadioThatTellsNothingReplacesNoFile) {
    CliBench bench;
    const std::string file = bench.folder.file("shack.mem");
    EXPECT_EQ(bench.run({"save", "memory", file}), ExitCode::Done);
    const std::string saved = fakes::fileContent(file);
    bench.ports.faults().refusesItems = {"MR"};
    EXPECT_EQ(bench.run({"save", "memory", file}), ExitCode::Answers);
    EXPECT_EQ(fakes::fileContent(file), saved);
    EXPECT_EQ(bench.run({"save", "memory", bench.folder.file("new.mem")}), ExitCode::Done);
}

TEST(Session, GivesASilentRadioUpAfterFiveSeconds) {
    CliBench bench;
    bench.meanwhile = [&bench](Session&) {
        bench.clock.after(10'000, [&bench] { bench.ports.faults().deaf = true; });
        bench.clock.after(14'800, [&bench] { EXPECT_FALSE(bench.code); });
        bench.clock.after(15'300, [&bench] { EXPECT_TRUE(bench.code); });
    };
    EXPECT_EQ(bench.run({"--pace", "100", "save", "bandstack", bench.folder.file("shack.bsr")}), ExitCode::Answers);
}

TEST(Session, TellsOfATargetThatCannotBeWrittenBeforeItReads) {
    CliBench bench;
    for (const std::string& file : {bench.folder.path(), bench.folder.file("no/such/folder.mnu")}) {
        EXPECT_EQ(bench.run({"save", "menu", file}), ExitCode::File);
        EXPECT_EQ(bench.sent, "");
        EXPECT_NE(bench.err.str().find(file), std::string::npos) << bench.err.str();
    }
}

TEST(Session, EachFailureHasItsTrueReason) {
    CliBench bench;
    const std::string dir = bench.folder.file("stick");
    for (const std::string kind : {"menu", "memory", "list", "bandstack", "keyer"}) {
        std::filesystem::create_directory(dir);
        const std::string file = dir + "/mine";
        bench.meanwhile = [&](Session&) { bench.clock.after(1'500, [&] { std::filesystem::remove_all(dir); }); };
        EXPECT_EQ(bench.run({"--pace", "100", "save", kind, file}), ExitCode::File);
        const std::string told = bench.err.str();
        EXPECT_NE(told.find("Path not found: " + file), std::string::npos) << kind << ": " << told;
        EXPECT_EQ(std::count(told.begin(), told.end(), '\n'), 1) << told;
    }
}

TEST(Session, RefusesAFileThatHoldsNothingForTheRadioOrMoreThanItTakes) {
    CliBench bench;
    const std::string file = bench.folder.file("given");
    const std::vector<std::pair<std::string, std::string>> useless = {
        {"menu", "\r\n?;\r\n"},
        {"memory", "\r\n\r\n"},
        {"list", "Location,Name,Frequency\r\n0,DX,14.2\r\n"},
        {"list", "MW00700000000+000000200080;\r\n"},
        {"bandstack", "||\r\n"},
        {"keyer", "|Mem.|Keyer Text|Char. Count|\r\n|KM1;||0|\r\n"}};
    for (const auto& [kind, content] : useless) {
        fakes::writeFile(file, content);
        EXPECT_EQ(bench.run({"restore", kind, file}), ExitCode::File) << kind;
        EXPECT_EQ(bench.sent, "");
        EXPECT_NE(bench.err.str().find(file + ": there is nothing in it"), std::string::npos) << bench.err.str();
    }
    fakes::writeFile(file, "MR00114250000+000000200080;\r\nMR002\rKY6;\r\n");
    EXPECT_EQ(bench.run({"restore", "memory", file}), ExitCode::File);
    EXPECT_NE(bench.err.str().find("Line 2 (MR002) is no memory"), std::string::npos) << bench.err.str();
    EXPECT_EQ(bench.sent, "");
    const std::string longText(51, 'E');
    fakes::writeFile(file, "|Mem.|Keyer Text|Char. Count|\r\n|KM1;|CQ|2|\r\n|KM2;|" + longText + "|51|\r\n");
    EXPECT_EQ(bench.run({"restore", "keyer", file}), ExitCode::File);
    EXPECT_EQ(bench.sent, "");
    EXPECT_NE(bench.err.str().find("KM2: the text has 51 characters"), std::string::npos) << bench.err.str();
}

/// What is sent comes back, as from some cables: it is told, passed over, and confirms nothing.
TEST(Session, AnEchoIsNoAnswerOfTheRadio) {
    CliBench bench;
    bench.ports.faults().echoes = true;
    const std::string file = bench.folder.file("radio.");
    const std::vector<std::string> kinds = {"menu", "memory", "bandstack", "keyer"};
    for (const auto& kind : kinds) {
        EXPECT_EQ(bench.run({"save", kind, file + kind}), ExitCode::Done) << kind << bench.err.str();
        EXPECT_NE(bench.err.str().find("returns what is sent"), std::string::npos);
    }
    const RadioState saved = bench.ports.radio().state;
    bench.ports.radio().state.menu.at(42) = "007";
    bench.ports.radio().state.keyer.at(2) = "OTHER";
    for (const std::string pace : {"answered", "100"}) {
        for (const auto& kind : kinds) {
            const std::vector<std::string> restore = {"--pace",  pace, "--all",    "--no-safety-copy",
                                                      "restore", kind, file + kind};
            EXPECT_EQ(bench.run(restore), ExitCode::Done) << kind << bench.err.str() << bench.out.str();
        }
    }
    EXPECT_EQ(bench.ports.radio().state.menu, saved.menu);
    EXPECT_EQ(bench.ports.radio().state.keyer, saved.keyer);

    bench.ports.faults().deaf = true;
    EXPECT_EQ(bench.run({"save", "menu", file + "none"}), ExitCode::Answers);
    EXPECT_NE(bench.err.str().find("the radio does not answer"), std::string::npos) << bench.err.str();
    for (const auto& kind : kinds) {
        bench.ports.faults().deaf = false;
        bench.ports.faults().deafAfter = 1;
        EXPECT_EQ(bench.run({"--all", "--no-safety-copy", "restore", kind, file + kind}), ExitCode::Answers) << kind;
    }
}

/// No command names a register: one step that is not heard, and the rest of the band would be another register's.
TEST(Session, AStepThroughTheBandStackThatIsNotHeardIsMadeAgain) {
    CliBench bench;
    const std::string whole = bench.folder.file("whole.bsr");
    const std::string file = bench.folder.file("again.bsr");
    ASSERT_EQ(bench.run({"save", "bandstack", whole}), ExitCode::Done);
    for (int n = 3; n < 80; ++n) {
        bench.ports.faults().deafOnce = n;
        EXPECT_EQ(bench.run({"save", "bandstack", file}), ExitCode::Done) << n << ": " << bench.err.str();
        bench.ports.faults().deafOnce.reset();
        EXPECT_EQ(bench.run({"compare", whole, file}), ExitCode::Done) << n << "\n" << bench.out.str().substr(0, 300);
    }
}

}  // namespace
}  // namespace korvex::cli
