#include <algorithm>
#include <cstdlib>
#include <future>
#include <gtest/gtest.h>
#include <string>

#include "Shell.h"
#include "fakes/ProgramBench.h"
#include "fakes/SimulatorProcess.h"
#include "fakes/WholeRestore.h"
#include "radio/StateText.h"

namespace korvex {
namespace {

/// What the programs are to whoever starts them from a shell: signals, streams, and what they print.
class InTheShell : public testing::Test {
protected:
    void SetUp() override {
        if (!hasKorvexctl()) GTEST_SKIP();
        ASSERT_EQ(run("mkfifo " + fifo).code, 0);
    }
    static bool isObeyed(const std::string& text) {
        return std::any_of(text.begin(), text.end(),
                           [](char c) { return c >= 0 && c < ' ' && c != '\n' && c != '\t'; });
    }

    const std::string simulatorProgram = BINARY_DIR "/ft2000sim";
    const std::string simulator = simulatorProgram + " ";
    const std::string korvexctl = std::string(BINARY_DIR) + "/korvexctl --settings /dev/null ";
    fakes::TemporaryFolder folder;
    const std::string fifo = folder.file("fifo");
};

TEST_F(InTheShell, ASignalEndsTheProgramWhateverItWaitsFor) {
    const std::string saved = folder.file("saved");
    const std::string restore = korvexctl + "--demo restore menu " + fifo;
    const auto codeAfter = [](const std::string& signal, const std::string& commandLine) {
        return run("timeout --preserve-status -k 9 -s " + signal + " 0.8 " + commandLine).code;
    };
    EXPECT_EQ(codeAfter("INT", restore), 130);
    EXPECT_EQ(codeAfter("INT", korvexctl + "--demo save menu " + saved), 130);
    EXPECT_FALSE(std::filesystem::exists(saved));
    EXPECT_EQ(codeAfter("HUP", restore), 129);
    EXPECT_EQ(codeAfter("TERM", simulator + "--log " + fifo), 143);
    EXPECT_EQ(codeAfter("TERM", simulator), 0);
    const std::string background = restore + " & p=$!; sleep 0.5; kill -TERM $p; ";
    EXPECT_EQ(run(background + "sleep 0.4; kill -HUP $p; wait $p").code, 129) << "the second one ends it at once";
    EXPECT_EQ(run("trap '' HUP; " + korvexctl + "--demo send 'FA;' & p=$!; sleep 0.3; kill -HUP $p; wait $p").code, 0);
}

TEST_F(InTheShell, EveryProgramTellsWithoutADisplayWhatItTakesAndWhatItDoesNot) {
    for (const std::string name : {"korvex", "korvexctl", "ft2000sim"}) {
        const std::string program =
            "env -u DISPLAY -u WAYLAND_DISPLAY QT_QPA_PLATFORM=xcb " BINARY_DIR "/" + name + " ";
        const auto refused = run(program + "--colour 2>&1 >/dev/null");
        EXPECT_EQ(refused.code, 2) << name;
        EXPECT_TRUE(refused.output.starts_with(name + ": unknown argument \"--colour\"\n")) << refused.output;
        EXPECT_NE(refused.output.find(name + " --help"), std::string::npos) << refused.output;
        EXPECT_EQ(run(program + "--version 2>/dev/null").output.substr(0, name.size() + 1), name + " ");
        const auto help = run(program + "-h");
        EXPECT_EQ(help.code, 0);
        EXPECT_NE(help.output.find("\nUsage: " + name), std::string::npos) << help.output;
    }
    EXPECT_EQ(run(simulator + "--turnaround=-1").code, 2);
}

TEST_F(InTheShell, OutputThatNobodyGetsIsTold) {
    for (const std::string what : {"--help", "--version", "--demo ports", "--demo send 'FA;'"}) {
        const auto outcome = run(korvexctl + what + " >/dev/full");
        EXPECT_EQ(outcome.code, 5) << what;
        EXPECT_NE(outcome.output.find("could not be written"), std::string::npos) << outcome.output;
    }
    EXPECT_EQ(run(simulator + "--help >/dev/full").code, 1);
    EXPECT_EQ(run("timeout 5 " + simulator + ">/dev/full").code, 1);
}

/// No scratch files: a folder that cannot be written is no trouble, and one that holds a backup stays as it is.
TEST_F(InTheShell, WhatIsReadBackGoesThroughNoFile) {
    const std::string demo = "TMPDIR=/nowhere " + korvexctl + "--demo ";
    ASSERT_EQ(run(demo + "save keyer " + folder.file("keyer.kem")).code, 0);
    for (const std::string name : {"keyer", "radio", "given"}) fakes::writeFile(folder.file(name), "mine");
    const std::string listing = "cd " + folder.path() + " && rm -f fifo && ls -lid --time-style=full-iso . * && cat *";
    const std::string before = run(listing).output;
    const std::string tests =
        "t() { " + demo + "\"$@\" 2>&1 >/dev/null || echo failed: $*; }; cd " + folder.path() + "; ";
    EXPECT_EQ(run("{ " + tests +
                  "t restore keyer --no-safety-copy keyer.kem & t compare keyer.kem radio & t restore-all "
                  "--no-safety-copy . & "
                  "cat keyer.kem | t restore keyer --no-safety-copy - & wait; } | grep -v 'nothing of 5 items differs'")
                  .output,
              std::string("korvexctl: there is no menu.mnu: the radio keeps what it has\n") +
                  "korvexctl: there is no memory.mem: the radio keeps what it has\n" +
                  "korvexctl: there is no bandstack.bsr: the radio keeps what it has\n");
    EXPECT_EQ(run(listing).output, before);
}

TEST_F(InTheShell, WhatIsOpenAlreadyIsAddedToAndNotReplaced) {
    const std::string save = korvexctl + "--demo save keyer ";
    const auto outcome =
        run("cd " + folder.path() + "; echo head > one; { " + save + "/dev/stdout; echo tail; } >> one & { " + save +
            "-; echo tail; } > two & " + save + "three & " + save + "fifo & cat fifo > four; wait");
    EXPECT_EQ(outcome.output, "");
    const std::string saved = fakes::fileContent(folder.file("three"));
    EXPECT_EQ(fakes::fileContent(folder.file("one")), "head\n" + saved + "tail\n");
    EXPECT_EQ(fakes::fileContent(folder.file("two")), saved + "tail\n");
    EXPECT_EQ(fakes::fileContent(folder.file("four")), saved);
}

/// Else the radio's port could be what the program prints to.
TEST_F(InTheShell, NothingThatIsOpenedTakesTheNumberOfAClosedStream) {
    for (const std::string& program : {korvexctl + "--demo restore menu " + fifo, simulator + "--log " + fifo}) {
        const auto streams = run(program + " <&- >&- 2>&- & p=$!; sleep 0.4; readlink /proc/$p/fd/0 /proc/$p/fd/1 " +
                                 "/proc/$p/fd/2; kill -KILL $p; wait $p 2>/dev/null");
        EXPECT_EQ(streams.output, "/dev/null\n/dev/null\n/dev/null\n") << program;
    }
}

TEST_F(InTheShell, ARestoreWhoseReaderWentAwayGoesOn) {
    fakes::SimulatorProcess radio(simulatorProgram);
    const std::string port = korvexctl + "-r " + radio.device() + " ";
    std::string texts = "|Mem.|Keyer Text|Char. Count|\r\n";
    for (const char memory : std::string("12345")) texts.append("|KM").append(1, memory).append(";|73 TU|5|\r\n");
    fakes::writeFile(folder.file("keyer.kem"), texts);
    const std::string code = folder.file("code");
    run("{ " + port + "restore-all --verify --no-safety-copy " + folder.path() + "; echo $? >" + code +
        "; } 2>&1 | true");
    EXPECT_EQ(run(port + "send 'KM5;'").output, "KM573 TU;\n");
    EXPECT_EQ(fakes::fileContent(code), "5\n");
}

TEST_F(InTheShell, NothingThatIsPrintedIsObeyedByTheTerminal) {
    const std::string escape = "'\033[31m\033]0;x\a'";
    fakes::writeFile(folder.file("state"), "# A simulated FT-2000.\n\033[2J = 1\n");
    for (const std::string& commandLine :
         {korvexctl + "-r /dev/" + escape + " send 'FA;'", korvexctl + escape, korvexctl + "save menu /no/" + escape,
          korvexctl + "--database /no/" + escape + " description export x", simulator + escape,
          simulator + "--fault " + escape, simulator + "--link /no/" + escape,
          "timeout 1 " + simulator + "--state " + folder.file("state")}) {
        const auto outcome = run(commandLine);
        EXPECT_FALSE(isObeyed(outcome.output)) << outcome.output;
        EXPECT_NE(outcome.output.find("\u241B["), std::string::npos) << commandLine << outcome.output;
    }
}

TEST_F(InTheShell, TheSimulatorKeepsItsStateInNothingButAStateFile) {
    const std::string diary = folder.file("diary.txt");
    fakes::writeFile(diary, "Dear diary,\n");
    EXPECT_EQ(run("timeout 5 " + simulator + "--state " + diary).code, 1);
    EXPECT_EQ(fakes::fileContent(diary), "Dear diary,\n");
    EXPECT_EQ(run("timeout 5 " + simulator + "--state " + fifo).code, 1);
}

TEST_F(InTheShell, SavesTheMenuAndRestoresItIntoAnotherRadio) {
    const std::string file = folder.file("shack.mnu");
    {
        fakes::SimulatorProcess radio(simulatorProgram);
        const auto saved = run(korvexctl + "-r " + radio.device() + " -s 38400,n,8,2 save menu " + file);
        ASSERT_EQ(saved.code, 0) << saved.output;
    }
    const std::string content = fakes::fileContent(file);
    EXPECT_EQ(std::count(content.begin(), content.end(), '\n'), 149);
    fakes::SimulatorProcess other(simulatorProgram);
    const std::string port = korvexctl + "-r " + other.device() + " -s 38400,n,8,2 ";
    EXPECT_EQ(run(port + "send 'EX0010001;EX042099;'").code, 0);
    EXPECT_EQ(run(port + "restore menu " + file).code, 0);
    const auto line42 = content.substr(content.find("EX042"), 10);
    EXPECT_EQ(run(korvexctl + "-r /dev/ttyNoSuchPort send 'FA;'").code, 3);
    EXPECT_EQ(run(port + "send 'EX042;'").output.substr(0, 9), line42.substr(0, 9));
}

TEST_F(InTheShell, CallsMenuItemsByTheNamesOfTheDescriptionDatabase) {
    const std::string one = folder.file("one.mnu");
    const std::string other = folder.file("other.mnu");
    const std::string database = folder.file("names.mdb");
    fakes::writeFile(one, "EX0010;\r\nEX0020;\r\nEX0420;\r\n");
    fakes::writeFile(other, "EX0011;\r\nEX0021;\r\nEX0421;\r\n");
    const auto compared = [&] { return run(korvexctl + "--database " + database + " compare " + one + " " + other); };
    const std::string numbers = "001: \"0\" | \"1\"\n002: \"0\" | \"1\"\n042: \"0\" | \"1\"\n";
    EXPECT_EQ(compared().output, numbers);
    EXPECT_FALSE(std::filesystem::exists(database));
    std::string names = "1\tMenu\tGroup\tName\n2\t001\tAGC\tAGC Fast\\nDelay\n3\t\t\tmore\n";
    for (int item = 2; item <= 149; ++item) names += std::to_string(item + 2) + "\t" + std::to_string(item) + "\n";
    fakes::writeFile(folder.file("names.tsv"), names);
    const auto import = korvexctl + "--database " + database + " description import " + folder.file("names.tsv");
    EXPECT_EQ(run(import).output, folder.file("names.tsv") + ": 151 rows taken, " + database + " is new\n");
    EXPECT_NE(run(import).output.find("nothing in it is new"), std::string::npos);
    const std::string before = fakes::fileContent(database);
    EXPECT_EQ(compared().output, "001 (AGC Fast Delay)" + numbers.substr(3));
    EXPECT_EQ(compared().code, 1);
    EXPECT_EQ(fakes::fileContent(database), before);
    fakes::writeFile(database, "no database");
    EXPECT_EQ(compared().output, numbers);
}

/// korvexctl with a simulated radio of its own; what the radio has at the end.
std::string stateAfter(const std::string& stateFile, const std::string& command, int code, std::string& output) {
    fakes::SimulatorProcess radio(BINARY_DIR "/ft2000sim", {"--state", stateFile});
    const auto outcome =
        run(BINARY_DIR "/korvexctl --settings /dev/null -s 38400,n,8,2 -r " + radio.device() + " " + command);
    EXPECT_EQ(outcome.code, code) << outcome.output;
    EXPECT_EQ(radio.end(), 0);
    output = outcome.output;
    return fakes::fileContent(stateFile);
}

/// The radio is served at its own pace, so that this takes two minutes. Nothing empties a memory: exit code 1.
TEST(WholeRadioOnPty, GoesIntoAnotherRadioButForWhatIsListed) {
    if (std::getenv("KORVEX_SLOW_TESTS") == nullptr) GTEST_SKIP() << "takes two minutes; KORVEX_SLOW_TESTS=1 runs it";
    fakes::TemporaryFolder folder;
    std::string printed;
    const std::string saved = stateAfter(folder.file("saved"), "backup " + folder.file("backups"), 0, printed);
    const std::string backup = printed.substr(printed.rfind('\n', printed.size() - 2) + 1, std::string::npos);
    const auto restore = [&](const std::string& name, const std::string& option) {
        return std::async(std::launch::async, [&, name, option] {
            fakes::writeFile(folder.file(name), stateText(fakes::radioUnlike(ownersRadio())));
            std::string ignored;
            return stateAfter(folder.file(name), "restore-all " + option + backup, 1, ignored);
        });
    };
    auto usual = restore("usual", "");
    auto withCat = restore("with-cat", "--with-cat ");
    EXPECT_EQ(fakes::whatDiffers(saved, usual.get()), fakes::leftByWholeRestore(saved, false));
    EXPECT_EQ(fakes::whatDiffers(saved, withCat.get()), fakes::leftByWholeRestore(saved, true));
}

}  // namespace
}  // namespace korvex
