#include "share/PortShare.h"

#include <array>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "fakes/FakeDoors.h"
#include "fakes/ProgramBench.h"
#include "fakes/ScriptedDevice.h"
#include "radio/SimulatedPorts.h"

namespace korvex {
namespace {

using fakes::FakeProgram;

/// The simulated radio's port, shared.
struct ShareBench : fakes::ProgramBench<SimulatedPorts> {
    PortShare& share = program.share;
    FakeProgram& logger = doors.atDevice;
    std::vector<std::string> told;
    std::string went;
    Connections connections;

    ShareBench() {
        connections += share.told.connect([this](const std::string& text) { told.push_back(text); });
        openPort();
        connections += program.link.went.connect([this](std::string_view wire) { went += wire; });
        EXPECT_FALSE(share.openTerminal(""));
        clock.advance(3'000);  // the opening answers
        went.clear();
    }
    std::string ask(std::string_view wire, std::int64_t ms = 200) {
        logger.say(wire);
        clock.advance(ms);
        return logger.takeHeard();
    }
};

TEST(PortShare, AnswersWhoAskedInHisOrderAndOneAtATime) {
    ShareBench bench;
    EXPECT_EQ(bench.ask("FA07041000;FA;ID;AI;", 1'000), "FA07041000;ID0251;AI0;");
    EXPECT_EQ(bench.ask("fa;"), "FA07041000;");
    EXPECT_EQ(bench.ask("F"), "");
    EXPECT_EQ(bench.ask("A;\r\n ID;", 500), "FA07041000;ID0251;");
    EXPECT_EQ(bench.ask("SH1;ID;", 3'000), "?;ID0251;");

    bench.went.clear();
    bench.logger.say("FA;FB;");
    EXPECT_EQ(bench.went, "FA;");
    bench.clock.advance(200);
    EXPECT_EQ(bench.went, "FA;FB;");
}

TEST(PortShare, TellsApartWhatTwoProgramsAsk) {
    ShareBench bench;
    FakeProgram other;
    ASSERT_FALSE(bench.share.listen(4532));
    bench.doors.connect(other);
    bench.ask("FA14074000;");
    bench.logger.takeHeard();
    other.say("f\n");
    bench.logger.say("MD0;");
    bench.clock.advance(500);
    EXPECT_EQ(other.takeHeard(), "14074000\n");
    EXPECT_EQ(bench.logger.takeHeard().substr(0, 3), "MD0");
}

TEST(PortShare, RefusesNoiseAndFloodsAndGoesOn) {
    ShareBench bench;
    bench.went.clear();
    EXPECT_EQ(bench.ask(std::string(5'000, 'F') + ";"), "?;");
    EXPECT_EQ(bench.ask("KM1" + std::string(65, 'F') + ";"), "?;");
    EXPECT_EQ(bench.ask("\x01\xff\x80;"), "?;");
    EXPECT_EQ(bench.ask(";"), "?;");
    EXPECT_EQ(bench.ask("12;"), "?;");
    EXPECT_EQ(bench.went, "");
    for (int i = 0; i < 1'000; ++i) bench.logger.say("ID;");
    bench.clock.advance(5'000);
    const std::string heard = bench.logger.takeHeard();
    std::size_t answered = 0;
    for (auto at = heard.find("ID0251;"); at != std::string::npos; at = heard.find("ID0251;", at + 1)) ++answered;
    EXPECT_EQ(answered, SharedLine::mostWaiting + 1);
    EXPECT_EQ(bench.ask("ID;"), "ID0251;");
}

TEST(PortShare, LetsNothingThroughWhileOursHasTheLine) {
    ShareBench bench;
    EXPECT_EQ(bench.ask("FA;VS;AI0;AI;", 1'000).substr(11), "VS0;AI0;") << "hamlib's last words";
    bench.fileDialog.choose(bench.folder.file("menu.mnu"));
    bench.program.menuSave.mnu_Store_Click();
    bench.clock.advance(300);
    bench.went.clear();
    EXPECT_EQ(bench.ask("VS;"), "VS0;") << "it may open anew meanwhile";
    bench.logger.say("FA;FA07000000;MD0;");
    bench.clock.advance(1'900);
    EXPECT_EQ(bench.logger.takeHeard().substr(0, 2), "FA") << "the last answer";
    EXPECT_EQ(bench.went.find("FA"), std::string::npos);
    bench.clock.advance(200);
    EXPECT_EQ(bench.logger.takeHeard(), "?;MD02;") << "too late for anybody to want it";
    bench.clock.advance(20'000);
    EXPECT_EQ(bench.went.find("FA"), std::string::npos);
    EXPECT_FALSE(bench.program.link.operation());
    EXPECT_EQ(fakes::fileContent(bench.folder.file("menu.mnu")).substr(0, 5), "EX001");
    EXPECT_EQ(bench.ask("ID;"), "ID0251;");
}

/// The answer to a foreign question comes when a reading of ours has begun.
TEST(PortShare, KeepsALateForeignAnswerFromOurReading) {
    fakes::ProgramBench<fakes::ScriptedPorts> bench;
    auto& radio = bench.ports.plug(1);
    radio.answer = [](std::string_view wire) {
        return wire == "FA;"            ? std::string("FA14074000;")
               : wire.starts_with("EX") ? std::string(wire.substr(0, 5)) + "1;"
                                        : "";
    };
    bench.openPort();
    ASSERT_FALSE(bench.program.share.openTerminal(""));
    bench.clock.advance(3'000);
    bench.doors.atDevice.say("FA;");
    bench.clock.advance(100);
    EXPECT_EQ(bench.doors.atDevice.takeHeard(), "FA14074000;");
    radio.answerDelay = 80;
    bench.doors.atDevice.say("EX149;");
    bench.fileDialog.choose(bench.folder.file("menu.mnu"));
    bench.program.menuSave.mnu_Store_Click();
    bench.doors.atDevice.say("FA;");
    bench.clock.advance(20'000);
    EXPECT_EQ(bench.doors.atDevice.takeHeard(), "EX1491;FA14074000;") << "in their order";
    const std::string file = fakes::fileContent(bench.folder.file("menu.mnu"));
    EXPECT_EQ(file.substr(0, 6), "EX0011");
    EXPECT_EQ(file.find("EX149"), file.rfind("EX149"));
}

TEST(PortShare, TransmitsOnlyWithLeaveAndEndsItWithWhoBeganIt) {
    ShareBench bench;
    bench.went.clear();
    EXPECT_EQ(bench.ask("TX1;TX0;MX1;KY6;AC002;", 900), "?;?;?;?;");
    EXPECT_EQ(bench.went, "TX0;");
    EXPECT_EQ(bench.told.size(), 4U);

    bench.told.clear();
    bench.went.clear();
    bench.share.allowTransmit(true);
    EXPECT_EQ(bench.ask("TX1;"), "");
    EXPECT_EQ(bench.told.size(), 1U);
    bench.logger.leave();
    EXPECT_EQ(bench.went, "TX1;TX0;");
    EXPECT_EQ(bench.told.size(), 2U);

    bench.went.clear();
    EXPECT_EQ(bench.ask("TX1;MX1;", 900), "");
    bench.logger.leave();
    EXPECT_EQ(bench.went.substr(0, 8), "TX1;MX1;");
    EXPECT_NE(bench.went.find("TX0;"), std::string::npos) << "both";
    EXPECT_NE(bench.went.find("MX0;"), std::string::npos);

    bench.ask("TX1;", 900);
    bench.went.clear();
    bench.share.allowTransmit(false);
    EXPECT_EQ(bench.went, "TX0;");
    bench.share.allowTransmit(true);
    bench.ask("TX1;", 900);
    bench.went.clear();
    bench.program.link.closePort();
    EXPECT_EQ(bench.went, "TX0;") << "nobody could end it any more";
    EXPECT_EQ(bench.ports.radio().state.get("TX"), "0");
    bench.openPort();
    bench.clock.advance(3'000);

    bench.ask("TX1;");
    bench.program.menuSave.mnu_Store_Click();
    bench.went.clear();
    bench.logger.say("TX0;");
    EXPECT_EQ(bench.went, "TX0;") << "at once, whoever has the line";
}

/// hamlib's and flrig's first questions, of a program that comes when nobody has asked anything yet.
TEST(PortShare, LetsAProgramOpenInTheMiddleOfAReading) {
    ShareBench bench;
    bench.fileDialog.choose(bench.folder.file("menu.mnu"));
    bench.program.menuSave.mnu_Store_Click();
    bench.clock.advance(1'000);
    EXPECT_EQ(bench.ask("AI;ID;VS;FA;FB;FT;PS;TX;", 0), "AI0;ID0251;VS0;FA14195000;FB07074000;FT0;PS1;TX0;");
    EXPECT_EQ(bench.ask("AI0;IF;MD0;SH0;NA0;PC;AG0;", 0).substr(0, 2), "IF") << "they are off already";
    bench.clock.advance(20'000);
    EXPECT_FALSE(bench.program.link.operation());

    bench.went.clear();
    bench.clock.advance(10'000);
    EXPECT_EQ(bench.went, "") << "nothing was set, nothing is asked anew";
    bench.share.closeTerminal();
    bench.program.link.send("FA07000000;");
    bench.clock.advance(5'000);
    EXPECT_EQ(bench.went, "FA07000000;") << "nobody shares it";
}

TEST(PortShare, AsksNothingAheadOfASilentRadioNorBesideAnOperation) {
    fakes::ProgramBench<SimulatedPorts> bench;
    bench.openPort();
    std::string went;
    const Connection sent = bench.program.link.went.connect([&](std::string_view wire) { went += wire; });
    bench.fileDialog.choose(bench.folder.file("menu.mnu"));
    bench.program.menuSave.mnu_Store_Click();
    ASSERT_FALSE(bench.program.share.openTerminal(""));
    bench.clock.advance(5'000);
    EXPECT_EQ(went.find("ID;"), std::string::npos);
    bench.clock.advance(20'000);
    EXPECT_NE(went.find("RM8;"), std::string::npos) << "asked when it was over";

    bench.ports.faults().deaf = true;
    bench.program.link.send("FA07000000;");
    went.clear();
    bench.clock.advance(30'000);
    EXPECT_EQ(went, "ID;");
}

TEST(PortShare, PassesOnWhatIsToldUnaskedToWhoWantsIt) {
    ShareBench bench;
    bench.ports.faults().unasked = true;
    EXPECT_EQ(bench.ask("ID;"), "ID0251;");
    EXPECT_EQ(bench.ask("AI1;", 2'000).find("IF"), std::string::npos);
    bench.logger.takeHeard();
    EXPECT_NE(bench.ask("ID;", 2'000).find("FA14195000;"), std::string::npos);
}

/// What an operation of ours has set is not told as it was before.
TEST(PortShare, ForgetsWhatWasToldBeforeOursHasSet) {
    ShareBench bench;
    EXPECT_EQ(bench.ask("EX042;"), "EX042050;");
    bench.ports.radio().state.menu.at(42) = "060";
    bench.program.link.send("EX042060;");
    bench.clock.advance(100);
    bench.fileDialog.choose(bench.folder.file("menu.mnu"));
    bench.program.menuSave.mnu_Store_Click();
    EXPECT_EQ(bench.ask("EX042;", 1'900), "");
    EXPECT_EQ(bench.ask("EX042;", 200), "?;");
    bench.clock.advance(20'000);
    bench.logger.takeHeard();
    EXPECT_EQ(bench.ask("EX042;"), "EX042060;");
}

/// The same for what a program has set, what the radio has refused, and what was before the port was closed.
TEST(PortShare, TellsNothingFromBeforeWhileOursHasTheLine) {
    ShareBench bench;
    bench.program.link.closePort();
    bench.openPort();
    bench.clock.advance(5'000);
    EXPECT_EQ(bench.ask("FA07000000;", 5'000), "");
    EXPECT_EQ(bench.ask("SH1;"), "?;");
    EXPECT_EQ(bench.ask("AI1;"), "");
    bench.fileDialog.choose(bench.folder.file("menu.mnu"));
    bench.program.menuSave.mnu_Store_Click();
    EXPECT_EQ(bench.ask("SH1;", 1'000), "") << "it may be another answer now";
    bench.clock.advance(2'000);
    bench.logger.takeHeard();
    EXPECT_EQ(bench.ask("FA;AI;", 1'900), "FA07000000;");
    bench.clock.advance(20'000);
    bench.logger.takeHeard();
    EXPECT_EQ(bench.ask("AI0;FA;AI;", 2'000), "FA07000000;AI0;");
    bench.clock.advance(5'000);
    bench.program.link.closePort();
    bench.openPort();
    bench.clock.advance(5'000);
    bench.program.menuSave.mnu_Store_Click();
    EXPECT_EQ(bench.ask("ID;FA;", 0), "ID0251;FA07000000;");
    bench.program.link.breakOff(Outcome::Kind::Cancelled);
}

TEST(PortShare, LeavesTheRadioAsItWasFound) {
    ShareBench bench;
    bench.went.clear();
    EXPECT_EQ(bench.ask("EX0292;EX029;"), "EX0292;") << "what hamlib wants to hear";
    EXPECT_EQ(bench.went, "");
    bench.ask("AI1;");
    bench.logger.leave();
    bench.clock.advance(100);
    EXPECT_EQ(bench.went, "AI1;AI0;");
    EXPECT_EQ(bench.ask("EX029;"), "EX0291;") << "the radio's own";
}

TEST(PortShare, IsSilentWithoutARadio) {
    ShareBench bench;
    bench.program.link.closePort();
    EXPECT_EQ(bench.ask("FA;AI;"), "");
    bench.openPort();
    EXPECT_EQ(bench.ask("ID;"), "ID0251;");
    bench.msgBox.foresee("not plugged in");
    bench.ports.unplug();
    bench.clock.advance(100);
    EXPECT_EQ(bench.ask("ID;"), "");
}

TEST(PortShare, HangsUpOnTheSeventeenthGuest) {
    ShareBench bench;
    std::array<FakeProgram, 17> guests;
    ASSERT_FALSE(bench.share.listen(4532));
    for (auto& guest : guests) bench.doors.connect(guest);
    EXPECT_NE(guests[15].caller, nullptr);
    EXPECT_EQ(guests[16].caller, nullptr);
    guests[3].leave();
    bench.doors.connect(guests[16]);
    EXPECT_NE(guests[16].caller, nullptr);
    bench.share.stopListening();
    EXPECT_EQ(guests[0].caller, nullptr);
}

TEST(RigctlFace, SpeaksHamlibsNetworkProtocol) {
    ShareBench bench;
    FakeProgram client;
    ASSERT_FALSE(bench.share.listen(4532));
    bench.doors.connect(client);
    const auto request = [&](const std::string& line) {
        client.say(line + "\n");
        bench.clock.advance(500);
        return client.takeHeard();
    };
    EXPECT_EQ(request("F 14250000.000000"), "RPRT 0\n");
    EXPECT_EQ(request("f"), "14250000\n");
    EXPECT_EQ(request("+f"), "get_freq:\nFrequency: 14250000\nRPRT 0\n");
    EXPECT_EQ(request("M PKTUSB 0"), "RPRT 0\n");
    EXPECT_EQ(request("\\get_mode"), "PKTUSB\n0\n");
    EXPECT_EQ(request("V Sub"), "RPRT 0\n");
    EXPECT_EQ(request("v"), "VFOB\n");
    EXPECT_EQ(request("F 7040000"), "RPRT 0\n");
    EXPECT_EQ(request("V VFOA"), "RPRT 0\n");
    EXPECT_EQ(request("S 1 VFOB"), "RPRT 0\n");
    EXPECT_EQ(request("s"), "1\nVFOB\n");
    EXPECT_EQ(request("i"), "7040000\n");
    EXPECT_EQ(request("I 7050000"), "RPRT 0\n");
    EXPECT_EQ(request("f"), "14250000\n");
    EXPECT_EQ(request("S 0 VFOA"), "RPRT 0\n");
    EXPECT_EQ(request("s"), "0\nVFOA\n");
    EXPECT_EQ(request("T 1"), "RPRT -9\n");
    EXPECT_EQ(request("t"), "0\n");
    EXPECT_EQ(request("F 99"), "RPRT -1\n");
    EXPECT_EQ(request("F"), "RPRT -1\n");
    EXPECT_EQ(request("l STRENGTH"), "RPRT -11\n");
    EXPECT_EQ(request(std::string(300, 'f')), "RPRT -11\n");
    EXPECT_EQ(request(std::string(300, ' ') + "f"), "") << "the end of a line without end is lost";
    std::string flood;
    for (int i = 0; i < 200; ++i) flood += "q\n";
    flood.insert(0, "f\n");
    EXPECT_EQ(request(flood).size(), std::string("14250000\n").size() + 63 * std::string("RPRT 0\n").size());
    EXPECT_EQ(request("f\nv\nt"), "14250000\nVFOA\n0\n");
    bench.program.link.closePort();
    EXPECT_EQ(request("f"), "RPRT -5\n");
    client.leave();
    EXPECT_EQ(client.caller, nullptr);
}

}  // namespace
}  // namespace korvex
