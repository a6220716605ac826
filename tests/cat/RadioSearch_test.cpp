#include "cat/RadioSearch.h"

#include <gtest/gtest.h>

#include "cat/PortSettings.h"
#include "fakes/ProgramBench.h"
#include "fakes/ScriptedDevice.h"

namespace korvex {
namespace {

/// Ports of which some are in the hands of a program that has not locked them.
class SharedPorts : public fakes::ScriptedPorts {
public:
    using ScriptedPorts::ScriptedPorts;
    Failure heldByOther(int number) override {
        if (number != held) return {};
        return RuntimeError{errors::PortAlreadyOpen, "in use by wsjtx"};
    }
    int held = 0;
};

class RadioSearchTest : public testing::Test {
protected:
    fakes::VirtualClock clock;
    SharedPorts ports{clock};
    RadioSearch search{ports, clock};
    std::optional<RadioSearch::Found> found;
    Connection m_found = search.found.connect([this](const auto& what) { found = what; });

    /// A radio at this speed: what comes at another one stays in it as the beginning of the next command.
    void plugRadio(int number, int speed, const std::string& answer) {
        auto& line = ports.plug(number);
        line.answer = [&line, speed, answer, rest = false](std::string_view) mutable -> std::string {
            if (line.settings.speed != speed) rest = true;
            if (line.settings.speed != speed) return {};
            return std::exchange(rest, false) ? "?;" : answer;
        };
    }
    bool run(std::int64_t ms) {
        return clock.advanceUntil([this] { return !search.running; }, ms);
    }
};

TEST_F(RadioSearchTest, FindsTheRadioBehindPortsThatAreSilentTakenOrSomethingElse) {
    ports.plug(1);
    ports.plug(2);
    ports.held = 2;
    ports.plug(4).openFailure = RuntimeError{errors::PermissionDenied, "no permission"};
    plugRadio(5, 9600, "ID0310;");
    plugRadio(7, 19200, "noiseID0252;");
    search.start(1, 4800);
    EXPECT_TRUE(search.running);
    EXPECT_EQ(search.tries, 20);
    ASSERT_TRUE(run(30'000)) << search.status.get();
    ASSERT_TRUE(found) << search.status.get();
    EXPECT_EQ(found->port, 7);
    EXPECT_EQ(found->line.text(), "19200,n,8,2");
    EXPECT_EQ(search.status.get(),
              "Port 7, /dev/scripted7 at 19200 bit/s: here is the FT-2000D. OK takes port and speed.");
    EXPECT_EQ(ports[2].openings, 0) << "another program's";
    for (const int number : {1, 5, 7}) {
        for (const auto& write : ports[number].writes) EXPECT_EQ(write.text, "ID;");
        EXPECT_FALSE(ports[number].isOpen());
        EXPECT_FALSE(ports[number].rts || ports[number].dtr);
        EXPECT_EQ(ports[number].handshaking, Handshaking::None);
    }
}

TEST_F(RadioSearchTest, BeginsWithWhatIsSetAndAsksTwiceForHalfASecondEach) {
    ports.plug(1);
    ports.plug(3).answerDelay = 700;
    ports[3].answer = [this](std::string_view) {
        return std::string(ports[3].settings.speed == 19200 ? "ID0251;" : "");
    };
    search.start(3, 19200);
    ASSERT_TRUE(run(701));
    EXPECT_EQ(ports[3].story(), "1 ID;|401 ID;");
    EXPECT_EQ(ports[1].openings, 0);
}

TEST_F(RadioSearchTest, NothingFoundSaysWhyPortByPort) {
    search.start(1, 4800);
    ASSERT_TRUE(run(10));
    EXPECT_NE(search.status.get().find("no serial port"), std::string::npos);
    ports.plug(1).answer = [](std::string_view wire) { return std::string(wire); };  // an echo is no answer
    ports.plug(2);
    ports.held = 2;
    search.start(1, 38400);
    ASSERT_TRUE(run(5000));
    EXPECT_EQ(search.tried, search.tries);
    EXPECT_FALSE(found);
    EXPECT_EQ(search.status.get(),
              "No FT-2000 has answered.\nPort 1, /dev/scripted1: no answer\nPort 2, /dev/scripted2: in use by wsjtx\n"
              "Is the radio switched on, and menu 030 (CAT RTS) OFF?");
}

TEST_F(RadioSearchTest, CancelAndAPulledPlugLeaveNoPortOpen) {
    ports.plug(1);
    search.start(1, 4800);
    clock.advance(100);
    ASSERT_TRUE(ports[1].isOpen());
    search.cancel();
    EXPECT_FALSE(ports[1].isOpen());
    EXPECT_FALSE(search.running);
    EXPECT_EQ(clock.armedTimers(), 0U);

    search.start(1, 4800);
    clock.advance(100);
    ports[1].goAway();
    ASSERT_TRUE(run(10));
    EXPECT_NE(search.status.get().find("Port 1, /dev/scripted1: The port has no device."), std::string::npos);
}

TEST(FindMyRadio, SetsTheFieldsOfTheDialogAndOkStoresThem) {
    fakes::ProgramBench<fakes::ScriptedPorts> bench;
    bench.settings.values["Einstellungen/COM-Anschluß"] = "7";
    bench.settings.values["Einstellungen/Einstellungen"] = "9600,e,7,1";
    bench.settings.values["Einstellungen/Handshaking"] = "2";
    bench.program.terminal.Form_Load();
    PortSettings dialog = bench.program.makePortSettings();
    dialog.Form_Load();
    ASSERT_EQ(dialog.cboPort.size(), 1U);
    EXPECT_TRUE(dialog.cboPort[0].missing);
    EXPECT_EQ(dialog.cboPort[0].device, "The port has no device.");

    bench.ports.plug(3).answer = [](std::string_view) { return std::string("ID0251;"); };  // plugged in meanwhile
    int told = 0;
    const Connection connection = dialog.radioFound.connect([&told] { ++told; });
    dialog.cmdFind_Click();
    bench.clock.advance(100);
    EXPECT_EQ(told, 1);
    EXPECT_EQ(dialog.cboPort[*dialog.selectedPort].number, 3);
    EXPECT_EQ(dialog.cboPort.size(), 2U);
    EXPECT_TRUE(dialog.cmdOK_Click());
    EXPECT_EQ(bench.program.MSComm1.Settings(), "9600,n,8,2");
    EXPECT_EQ(bench.program.MSComm1.Handshaking(), 0);
    EXPECT_EQ(bench.ports.remembered, std::vector<int>{3});
}

}  // namespace
}  // namespace korvex
