#include <algorithm>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <string>

#include "cli/CliBench.h"
#include "menu/MenuCommandTable.h"
#include "radio/Likeness.h"
#include "report/ReportText.h"

namespace korvex {
namespace {

using cli::CliBench;
using cli::ExitCode;

/// From the section on that tells of the line: what stands before it tells how the report was made.
std::string behaviourIn(const std::string& report) {
    return report.substr(std::min(report.find("\nThe line and the radio\n"), report.size()));
}

/// The times of a report that was made in real time hold what the machine was busy with.
std::string withoutTimes(const std::string& behaviour) {
    std::istringstream lines(behaviour);
    std::string kept;
    for (std::string line; std::getline(lines, line);) {
        if (line.find("at most ") == std::string::npos) kept += line + "\n";
    }
    return kept;
}

struct Radio {
    std::string name;
    std::function<void(SimulatedCable&)> arrange;
    ExitCode code = ExitCode::Different;
    std::string says;      ///< in the report
    std::string advice{};  ///< in what the owner is told
};

void refuse(SimulatedCable& cable, const std::string& item) {
    cable.line.faults.refusesItems.push_back(item);
}

const std::vector<Radio>& radios() {
    static const std::vector<Radio> all = {
        {"as believed", [](SimulatedCable&) {}, ExitCode::Done, "confirmed menu-numbers", "answers as Korvex expects"},
        {"items refused", [](SimulatedCable& cable) { refuse(cable, "EX042"), refuse(cable, "EX1"); },
         ExitCode::Different, "EX042            refused", "refuses menu 042, 100, 101"},
        {"keyer unreadable", [](SimulatedCable& cable) { refuse(cable, "KM"); }, ExitCode::Different,
         "refuted   keyer-readable", "keep the files"},
        {"keyer with braces", [](SimulatedCable& cable) { cable.radio.quirks.keyerTextEndsWithBrace = true; },
         ExitCode::Different, "KM1 to KM3       *}"},
        {"empty channels of zeros", [](SimulatedCable& cable) { cable.radio.quirks.emptyChannelAnswersZeros = true; },
         ExitCode::Different, "channels of zeros: 74", "channels of 0 Hz"},
        {"the current channel only", [](SimulatedCable& cable) { cable.radio.quirks.readsCurrentChannel = true; },
         ExitCode::Different, "refuted   channel-asked", "memories cannot be saved"},
        {"another source", [](SimulatedCable& cable) { cable.radio.quirks.sourceInMemoryRead = '5'; },
         ExitCode::Different, "source digits of channels: 5"},
        {"short antenna", [](SimulatedCable& cable) { cable.radio.quirks.antennaAnswerTellsRxAntenna = false; },
         ExitCode::Different, "refuted   antenna-form"},
        {"automatic untold",
         [](SimulatedCable& cable) {
             cable.radio.quirks.automaticIsResolved = false;
             cable.radio.state.set("RF0", "0");
         },
         ExitCode::Different, "refuted   automatic"},
        {"one at a time", [](SimulatedCable& cable) { cable.line.faults.oneAtATime = true; }, ExitCode::Different,
         "answers two questions sent at once: no", "leave room between them"},
        {"very slow", [](SimulatedCable& cable) { cable.line.turnaroundMs = 700; }, ExitCode::Different,
         "EX usually 700 ms, at most 1000 ms", "waits for it"},
        {"tells unasked", [](SimulatedCable& cable) { cable.line.faults.unasked = true; }, ExitCode::Different,
         "tells unasked: FA", "came without a question: FA"},
        {"returns what is sent", [](SimulatedCable& cable) { cable.line.faults.echoes = true; }, ExitCode::Different,
         "returns what is sent: yes", "takes it out"},
        {"noisy", [](SimulatedCable& cable) { cable.line.faults.garbage = true; }, ExitCode::Different,
         "noise between answers: yes", "check cable"},
        {"silent to one question", [](SimulatedCable& cable) { cable.line.fixedAnswers["EX042"] = ""; },
         ExitCode::Different, "EX042            no answer"},
    };
    return all;
}

/// A report says how the radio behaves, the owner is told what follows, and a radio that is made by the report gets
/// the same one.
TEST(Doctor, ReportsWhatIsSoAndARadioMadeByItIsAlike) {
    for (const auto& radio : radios()) {
        SCOPED_TRACE(radio.name);
        CliBench bench;
        radio.arrange(bench.ports.cable);
        const RadioState before = bench.ports.radio().state;
        EXPECT_EQ(bench.run({"--demo", "-s", "38400,n,8,2", "doctor"}), radio.code);
        EXPECT_TRUE(bench.ports.radio().state == before);
        EXPECT_EQ(bench.ports.radio().timesSet, 0) << "it only asks";
        const std::string report = bench.out.str();
        EXPECT_NE(report.find(radio.says), std::string::npos) << report;
        EXPECT_NE(bench.err.str().find(radio.advice), std::string::npos) << bench.err.str();

        CliBench like;
        const auto parsed = parseReport(report);
        ASSERT_TRUE(parsed);
        behaveLike(*parsed, like.ports.radio(), like.ports.cable.line);
        EXPECT_EQ(like.run({"--demo", "-s", "38400,n,8,2", "doctor"}), radio.code);
        EXPECT_EQ(behaviourIn(like.out.str()), behaviourIn(report));
    }
}

/// Reports that were kept, of a radio program by others among them: a radio made by one gets the same one.
TEST(Doctor, KeptReportsAreMadeAgain) {
    int kept = 0;
    for (const auto& entry : std::filesystem::directory_iterator(std::string(SOURCE_DIR) + "/tests/doctor/reports")) {
        SCOPED_TRACE(entry.path());
        ++kept;
        const std::string report = fakes::fileContent(entry.path());
        const auto parsed = parseReport(report);
        ASSERT_TRUE(parsed);
        CliBench bench;
        behaveLike(*parsed, bench.ports.radio(), bench.ports.cable.line);
        EXPECT_EQ(bench.run({"--demo", "-s", parsed->line, "doctor"}), ExitCode::Different);
        EXPECT_EQ(withoutTimes(behaviourIn(bench.out.str())), withoutTimes(behaviourIn(report)));
    }
    EXPECT_GE(kept, 2);
}

/// A radio that says nothing to what it does not know is not waited for at each of three hundred questions.
TEST(Doctor, IsSoonThroughWithARadioThatIsSilentToMost) {
    CliBench bench;
    for (int item = 1; item <= menuItemCount; ++item) {
        const std::string query = menuReadCommand(item);
        bench.ports.cable.line.fixedAnswers[query.substr(0, query.size() - 1)] = "";
    }
    const auto began = bench.clock.now();
    EXPECT_EQ(bench.run({"--demo", "-s", "38400,n,8,2", "doctor"}), ExitCode::Different);
    EXPECT_LT(bench.clock.now() - began, 90'000);
    EXPECT_NE(bench.err.str().find("does not answer to menu 001, 002"), std::string::npos) << bench.err.str();
}

/// Nothing of the owner's is in it but what he wants in.
TEST(Doctor, TellsNothingOfTheOwnersUnlessHeWantsIt) {
    CliBench bench;
    auto& state = bench.ports.radio().state;
    state.keyer.at(1) = "CQ DE DL0XYZ";
    state.set("FA", "14195123");
    state.memories.at(7) = "07041987+000000300000";
    ASSERT_EQ(bench.run({"--demo", "-s", "38400,n,8,2", "doctor"}), ExitCode::Done);
    for (const char* secret : {"DL0XYZ", "14195123", "07041987"}) {
        EXPECT_EQ(bench.out.str().find(secret), std::string::npos) << secret;
    }
    ASSERT_EQ(bench.run({"--demo", "-s", "38400,n,8,2", "--with-settings", "doctor"}), ExitCode::Done);
    for (const char* wanted : {"DL0XYZ", "14195123", "07041987", "EX042", "because you wanted them in"}) {
        EXPECT_NE(bench.out.str().find(wanted), std::string::npos) << wanted;
    }
}

/// Each radio, or none, gets a plain verdict, and is asked no more than is needed for it.
TEST(Doctor, SaysWhatIsAtTheOtherEnd) {
    struct End {
        std::string name;
        std::function<void(SimulatedCable&)> arrange;
        std::string verdict;
        int mostCommands;
    };
    const std::vector<End> ends = {
        {"none", [](SimulatedCable& cable) { cable.line.faults.deaf = true; }, "No FT-2000 has answered", 30},
        {"another model", [](SimulatedCable& cable) { cable.line.fixedAnswers["ID"] = "ID0310;"; },
         "This is no FT-2000: it says ID0310;", 5},
        {"refuses everything", [](SimulatedCable& cable) { cable.line.faults.refuses = true; },
         "No FT-2000 has answered", 60},
        {"goes silent", [](SimulatedCable& cable) { cable.line.faults.deafAfter = 50; }, "did not come to its end", 70},
    };
    for (const auto& end : ends) {
        SCOPED_TRACE(end.name);
        CliBench bench;
        end.arrange(bench.ports.cable);
        EXPECT_EQ(bench.run({"--demo", "-s", "38400,n,8,2", "doctor"}), ExitCode::Answers);
        EXPECT_NE(bench.err.str().find(end.verdict), std::string::npos) << bench.err.str();
        EXPECT_LE(bench.ports.cable.line.commandsHeard, end.mostCommands);
    }
    CliBench gone;
    gone.ports.faults().unplugged = 40;
    EXPECT_EQ(gone.run({"--demo", "-s", "38400,n,8,2", "doctor"}), ExitCode::Port);
}

TEST(Doctor, FindsTheSpeedThatTheRadioHas) {
    CliBench bench;
    bench.ports.cable.comparesSpeeds = true;  // menu 028 says 38400
    EXPECT_EQ(bench.run({"--demo", "-s", "4800,n,8,2", "doctor"}), ExitCode::Done);
    EXPECT_NE(bench.err.str().find("found on"), std::string::npos) << bench.err.str();
    EXPECT_NE(bench.out.str().find("line: 38400,n,8,2"), std::string::npos);
}

/// "?;" is also what a busy radio says: a second asking tells.
TEST(Doctor, AsksABusyRadioOnceMore) {
    CliBench bench;
    bench.meanwhile = [&](cli::Session&) {
        bench.clock.advanceUntil([&] { return bench.sent.ends_with("EX042;\n"); }, 60'000);
        refuse(bench.ports.cable, "EX042");
        bench.clock.advance(100);
        bench.ports.faults().refusesItems.clear();
    };
    EXPECT_EQ(bench.run({"--demo", "-s", "38400,n,8,2", "doctor"}), ExitCode::Done) << bench.err.str();
    EXPECT_NE(bench.sent.find("EX042;\nEX042;\n"), std::string::npos);
}

/// The band stack is walked through only where that is wanted, and the radio stands where it stood.
TEST(Doctor, WalksThroughTheBandStackOnlyWhereItIsWanted) {
    CliBench bench;
    EXPECT_EQ(bench.run({"--demo", "-s", "38400,n,8,2", "doctor"}), ExitCode::Done);
    EXPECT_EQ(bench.sent.find("BS"), std::string::npos);
    EXPECT_NE(bench.out.str().find("open      band-stack"), std::string::npos);
    const RadioState before = bench.ports.radio().state;
    EXPECT_EQ(bench.run({"--demo", "-s", "38400,n,8,2", "--band-stack", "doctor"}), ExitCode::Done) << bench.err.str();
    EXPECT_TRUE(bench.ports.radio().state == before);
    EXPECT_NE(bench.out.str().find("band stack registers walked: 33"), std::string::npos);
    EXPECT_NE(bench.out.str().find("confirmed band-stack"), std::string::npos);
    bench.ports.radio().quirks.hasSixtyMetres = false;
    EXPECT_EQ(bench.run({"--demo", "-s", "38400,n,8,2", "--band-stack", "doctor"}), ExitCode::Different);
    EXPECT_NE(bench.out.str().find("band stack registers walked: 30"), std::string::npos) << bench.out.str();
}

}  // namespace
}  // namespace korvex
