#include "cli/Session.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <sstream>

#include "fakes/ProgramBench.h"
#include "radio/SimulatedPorts.h"

namespace korvex::cli {
namespace {

/// korvexctl on the simulated radio, on the virtual clock.
struct CliBench {
    fakes::VirtualClock clock;
    SimulatedPorts ports{clock};
    fakes::FakeSettings settings;
    GivenFile givenFile;
    std::ostringstream out;
    std::ostringstream err;
    ConsoleMsgBox msgBox{err};
    NoShell shell;
    fakes::FakeDatabase database;
    fakes::TemporaryFolder folder;
    std::optional<ExitCode> code;
    std::function<void(Session&)> meanwhile;

    ExitCode run(const std::vector<std::string>& arguments) {
        const auto command = parseArguments(arguments);
        EXPECT_TRUE(command) << command.error().text;
        Program program({clock, ports, settings, givenFile, msgBox, shell, database, folder.path()});
        Session session(program, givenFile, *command, out, err);
        code.reset();
        auto finished = session.finished.connect([this](ExitCode result) { code = result; });
        session.start();
        if (meanwhile) meanwhile(session);
        EXPECT_TRUE(clock.advanceUntil([this] { return code.has_value(); }, 300'000)) << "never finished";
        EXPECT_FALSE(program.link.PortOpen());
        const auto sentSoFar = ports.radio().timesSet;
        clock.advance(5'000);
        EXPECT_EQ(ports.radio().timesSet, sentSoFar) << "something was sent after the end";
        return code.value_or(ExitCode::Usage);
    }
};

TEST(Session, SavesAndRestoresTheMenu) {
    CliBench bench;
    const std::string file = bench.folder.file("shack.mnu");
    EXPECT_EQ(bench.run({"-s", "38400,n,8,2", "save", "menu", file}), ExitCode::Done);
    const std::string saved = fakes::fileContent(file);
    EXPECT_EQ(std::count(saved.begin(), saved.end(), '\n'), 149);
    EXPECT_EQ(bench.run({"--demo", "restore", "menu", file}), ExitCode::Done);
    EXPECT_EQ(bench.err.str(), "");
}

TEST(Session, SendsACommandAndPrintsTheAnswer) {
    CliBench bench;
    EXPECT_EQ(bench.run({"send", "ID;EX029;"}), ExitCode::Done);
    EXPECT_EQ(bench.out.str(), "ID0251;\nEX0291;\n");
    EXPECT_EQ(bench.run({"send", "EX999;"}), ExitCode::Answers);
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
    fakes::writeFile(file, "EX9991;\r\n");
    EXPECT_EQ(bench.run({"restore", "menu", file}), ExitCode::Answers);
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
        EXPECT_EQ(bench.err.str(), "");

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

TEST(CommandLine, RefusesWhatItDoesNotUnderstand) {
    for (const std::vector<std::string>& bad : std::vector<std::vector<std::string>>{
             {},
             {"fly"},
             {"send"},
             {"save", "menu"},
             {"restore", "menu", "a", "b"},
             {"-s", "9600", "ports"},
             {"--handshaking", "7", "ports"},
             {"--colour", "ports"},
             {"-r"},
             {"--demo", "-r", "/dev/ttyS0", "send", "FA;"},
             {"send", "Ω;"},
             {"send", "TX1;"},
         }) {
        EXPECT_FALSE(parseArguments(bad)) << testing::PrintToString(bad);
    }
    EXPECT_TRUE(parseArguments({"--allow-transmit", "send", "TX1;"}));
    EXPECT_EQ(parseArguments({"--help"})->verb, Command::Verb::Help);
}

}  // namespace
}  // namespace korvex::cli
