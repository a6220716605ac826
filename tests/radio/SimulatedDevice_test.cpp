#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "fakes/VirtualClock.h"
#include "radio/SimulatedPorts.h"

namespace korvex {
namespace {

/// A port that is open to the simulated radio, and what comes in with its time.
class Line : public testing::Test {
protected:
    Line() {
        m_connections += device->received.connect([this] {
            heard += device->read();
            times.push_back(clock.now() - start);
        });
        m_connections += device->lost.connect([this](const RuntimeError& error) {
            lostNumber = error.number;
            times.push_back(clock.now() - start);
        });
    }
    ~Line() override { EXPECT_EQ(ports.radio().timesKeyed, 0); }

    void openIdeal() {
        ports.cable.idealLine = true;
        ASSERT_FALSE(device->open({}, Handshaking::None));
    }
    /// What the radio answers to this within `ms` ms, from now on.
    std::string ask(std::string_view wire, int ms = 1000) {
        heard.clear();
        times.clear();
        start = clock.now();
        device->write(wire);
        EXPECT_TRUE(times.empty());
        clock.advance(ms);
        return heard;
    }
    void fault(std::string_view text) { ASSERT_FALSE(setFault(ports.faults(), text)) << text; }

    fakes::VirtualClock clock;
    SimulatedPorts ports{clock};
    std::unique_ptr<SerialDevice> device = ports.makeDevice(1);
    std::string heard;
    std::vector<std::int64_t> times;
    std::int64_t start = 0;
    int lostNumber = 0;

private:
    Connections m_connections;
};

TEST_F(Line, AnswersAfterTheTurnaroundAndIsQuietThen) {
    openIdeal();
    EXPECT_EQ(ask("ID;", 29), "");
    clock.advance(1);
    EXPECT_EQ(heard, "ID0251;");
    EXPECT_EQ(clock.armedTimers(), 0U);
    ports.cable.line.turnaroundMs = 0;
    EXPECT_EQ(ask("EX0421"), "");
    EXPECT_EQ(ask("00;\r\nEX042;MD0;"), "EX042100;MD02;");
    EXPECT_EQ(times, std::vector<std::int64_t>{1});
    EXPECT_EQ(clock.armedTimers(), 0U);
}

TEST_F(Line, TakesItsTimeAtTheLineSpeed) {
    // 8N2 at 4800 bit/s: 11 bits are 2.29 ms a character.
    ASSERT_FALSE(device->open({4800, Parity::None, 8, StopBits::Two}, Handshaking::None));
    device->write("FA;");
    EXPECT_EQ(device->unsent(), 3U);
    clock.advance(5);
    EXPECT_EQ(device->unsent(), 1U);
    clock.advance(2);
    EXPECT_EQ(device->unsent(), 0U);
    clock.advance(31);  // 6.9 to send, 30 to think, 2.3 to come
    EXPECT_EQ(heard, "");
    clock.advance(2);
    EXPECT_EQ(heard, "F");
    clock.advance(22);
    EXPECT_EQ(heard, "FA14195000");
    clock.advance(1);
    EXPECT_EQ(heard, "FA14195000;");

    device->write("MD03;");
    clock.advance(3);
    device->discardUnsent();
    EXPECT_EQ(ask("D0;"), "MD02;");  // one character of the discarded text had left
}

TEST_F(Line, FaultsOfTheRadio) {
    openIdeal();
    fault("deaf-once=2");
    EXPECT_EQ(ask("MD0;ID;NA0;"), "MD02;NA00;");
    fault("refuses-item=042");
    fault("refuses-item=ml");
    EXPECT_EQ(ask("EX042;EX043;ML0;ml0001;ID;"), "?;EX0430;?;?;ID0251;");
    fault("none");
    fault("forgets-write=2");
    EXPECT_EQ(ask("KS030;KP05;KP;KS;KP05;KP;"), "KP08;KS030;KP05;");
    fault("forgets-write");
    EXPECT_EQ(ask("KS031;KS032;KS;"), "KS030;");
    fault("deaf-after=1");
    EXPECT_EQ(ask("ID;ID;ID;"), "ID0251;");
    EXPECT_EQ(ask("ID;"), "");
    for (const char* bad : {"", "deaf=1", "slow", "slow=x", "deaf-after=-1", "refuses-item=", "mute"}) {
        EXPECT_TRUE(setFault(ports.faults(), bad)) << bad;
    }
}

TEST_F(Line, FaultsOfTheWay) {
    openIdeal();
    fault("slow=500");
    EXPECT_EQ(ask("ID;"), "ID0251;");
    EXPECT_EQ(times, std::vector<std::int64_t>{530});
    fault("none");

    fault("split");
    EXPECT_EQ(ask("ID;"), "ID0251;");
    EXPECT_EQ(times, (std::vector<std::int64_t>{30, 37, 44, 51}));
    fault("none");

    fault("glued");
    EXPECT_EQ(ask("ID;", 100), "");  // waits for another answer
    EXPECT_EQ(ask("MD0;"), "ID0251;MD02;");
    EXPECT_EQ(times, std::vector<std::int64_t>{30});
    EXPECT_EQ(ask("NA0;"), "NA00;");  // none comes
    EXPECT_EQ(times, std::vector<std::int64_t>{280});
    fault("none");

    fault("unasked");
    EXPECT_EQ(ask("ID;MD0;"), "FA14195000;ID0251;MD02;FA14195000;");
    fault("none");

    fault("garbage");
    const std::string noisy = ask("ID;");
    EXPECT_TRUE(noisy.ends_with("ID0251;") && noisy.size() > 7);
    EXPECT_GT(static_cast<unsigned char>(noisy.front()), 127);
    EXPECT_EQ(noisy.find(';'), noisy.size() - 1);
}

TEST_F(Line, GoesAwayAndComesBack) {
    openIdeal();
    EXPECT_EQ(ports.makeDevice(1)->open({}, Handshaking::None)->number, errors::PortAlreadyOpen);
    EXPECT_EQ(ports.makeDevice(2)->open({}, Handshaking::None)->number, errors::PortGone);

    fault("unplugged=2");
    EXPECT_EQ(ask("ID;KS;KP;"), "ID0251;KS022;");
    EXPECT_EQ(times, (std::vector<std::int64_t>{30, 31}));
    EXPECT_EQ(lostNumber, errors::PortGone);
    EXPECT_TRUE(ports.list().empty());
    EXPECT_EQ(device->open({}, Handshaking::None)->number, errors::PortGone);

    ports.plugIn();
    openIdeal();
    EXPECT_EQ(ask("ID;"), "ID0251;");
    lostNumber = 0;
    ports.unplug();
    EXPECT_EQ(lostNumber, 0);
    clock.advance(1);
    EXPECT_EQ(lostNumber, errors::PortGone);
    EXPECT_EQ(clock.armedTimers(), 0U);
}

TEST_F(Line, AHandlerMayReplaceTheDevice) {
    openIdeal();
    const auto leaving = device->received.connect([this] {
        device = ports.makeDevice(1);
        EXPECT_FALSE(device->open({}, Handshaking::None));
    });
    EXPECT_EQ(ask("ID;"), "ID0251;");
    device->write("ID;");
    clock.advance(1000);
    EXPECT_EQ(device->read(), "ID0251;");
}

TEST_F(Line, AnotherSpeedAndSlowTypingAreNotUnderstood) {
    ports.cable.comparesSpeeds = true;
    ASSERT_FALSE(device->open({9600, Parity::None, 8, StopBits::Two}, Handshaking::None));
    EXPECT_EQ(ask("ID;").find("ID"), std::string::npos);
    device->close();
    ports.radio().answer("EX0281;EX0290;");
    ports.cable.line.enforcesTimeOut = true;
    ASSERT_FALSE(device->open({9600, Parity::None, 8, StopBits::Two}, Handshaking::None));
    EXPECT_EQ(ask("ID;"), "ID0251;");
    EXPECT_EQ(ask("I", 50), "");
    EXPECT_EQ(ask("D;"), "?;?;");
}

}  // namespace
}  // namespace korvex
