#include <array>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <string>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include "Shell.h"
#include "fakes/ProgramBench.h"
#include "fakes/SimulatorProcess.h"

namespace korvex {
namespace {

const std::string simulatorProgram = BINARY_DIR "/ft2000sim";

/// A program that has the device open and does nothing about the terminal's settings.
class OpenDevice {
public:
    explicit OpenDevice(const std::string& device) : m_fd(::open(device.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC)) {}
    ~OpenDevice() { ::close(m_fd); }
    OpenDevice(const OpenDevice&) = delete;
    OpenDevice& operator=(const OpenDevice&) = delete;

    int fd() const { return m_fd; }
    void say(const std::string& text) const {
        ASSERT_EQ(::write(m_fd, text.data(), text.size()), static_cast<ssize_t>(text.size()));
    }
    /// What comes within a quarter of a second.
    std::string hear() const {
        std::string heard;
        pollfd watched = {m_fd, POLLIN, 0};
        while (::poll(&watched, 1, 250) == 1) {
            std::array<char, 256> buffer{};
            const auto got = ::read(m_fd, buffer.data(), buffer.size());
            if (got <= 0) break;
            heard.append(buffer.data(), static_cast<std::size_t>(got));
        }
        return heard;
    }

private:
    int m_fd;
};

TEST(PtyTest, EveryProgramFindsAFreshDevice) {
    fakes::SimulatorProcess simulator(simulatorProgram);
    ASSERT_FALSE(simulator.device().empty());
    {
        const OpenDevice hasty(simulator.device());
        hasty.say("KS031;FA;FB;ID");  // a set counts; nobody waits for the answers, and the rest is no command yet
        termios settings{};
        ASSERT_EQ(::tcgetattr(hasty.fd(), &settings), 0);
        settings.c_lflag |= ICANON | ECHO;
        ASSERT_EQ(::tcsetattr(hasty.fd(), TCSANOW, &settings), 0);
        ::ioctl(hasty.fd(), TIOCEXCL);
    }
    ::usleep(100'000);
    for (int i = 0; i < 3; ++i) {
        const OpenDevice next(simulator.device());
        ASSERT_GE(next.fd(), 0);
        next.say("KS;\r\n");
        EXPECT_EQ(next.hear(), "KS031;") << i;
    }
    EXPECT_EQ(simulator.end(), 0);
}

TEST(PtyTest, TwoProgramsShareOneRadioUntilTheLastLeaves) {
    fakes::SimulatorProcess simulator(simulatorProgram, {"--turnaround", "100"});
    const OpenDevice first(simulator.device());
    first.say("MD0;");
    { const OpenDevice second(simulator.device()); }
    EXPECT_EQ(first.hear(), "MD02;");  // the other one's leaving took nothing away
}

/// The simulated radio as any program finds it, with hamlib's rigctl as that program.
class RigctlTest : public testing::Test {
protected:
    void SetUp() override {
        if (run("command -v rigctl").code != 0) GTEST_SKIP() << "rigctl is not installed (libhamlib-utils)";
    }
    static Ended rigctl(const std::string& device, const std::string& commands) {
        return run("rigctl -m 1029 -r " + device + " -s 38400 " + commands);
    }

    fakes::TemporaryFolder folder;
};

TEST_F(RigctlTest, ReadsTheRadio) {
    fakes::SimulatorProcess simulator(simulatorProgram);
    const auto& device = simulator.device();
    EXPECT_EQ(rigctl(device, "f m").output, "14195000\nUSB\n2400\n");
    EXPECT_EQ(rigctl(device, "_").output, "ID0251\n");

    const auto memory = rigctl(device, "h 2 1").output;
    EXPECT_NE(memory.find("Freq:   7.0300000 MHz\tMode:   CW"), std::string::npos) << memory;
    EXPECT_NE(memory.find("RIT: -125.0 Hz"), std::string::npos) << memory;
    const auto empty = rigctl(device, "h 9 1");
    EXPECT_EQ(empty.code, 0);
    EXPECT_NE(empty.output.find("Freq:   0.0 Hz"), std::string::npos) << empty.output;

    EXPECT_EQ(rigctl(device, "W 'EX042;' ';' W 'EX126;' ';' W 'EX150;' ';'").output, "EX042050;\nEX126+05;\n?;\n");
    EXPECT_EQ(simulator.end(), 0);
}

TEST_F(RigctlTest, SetsTheRadio) {
    fakes::SimulatorProcess simulator(simulatorProgram, {"--turnaround", "5"});
    const auto& device = simulator.device();
    EXPECT_EQ(rigctl(device, "F 7040000 f M CW 500 m").output, "7040000\nCW\n500\n");
    EXPECT_EQ(rigctl(device, "f m L KEYSPD 31 l KEYSPD U MN 1 u MN Y 2 0 t").output, "7040000\nCW\n500\n31\n1\n0\n");
    EXPECT_EQ(rigctl(device, "E 2 e").output, "2\n");
    EXPECT_EQ(simulator.end(), 0);
}

TEST_F(RigctlTest, AStateOutlivesTheRadio) {
    const auto state = folder.file("state");
    const auto link = folder.file("radio");
    std::filesystem::create_symlink("/dev/pts/gone", link);
    {
        fakes::SimulatorProcess simulator(simulatorProgram, {"--state", state, "--link", link, "--turnaround", "0"});
        EXPECT_EQ(rigctl(link, "F 14195500 W 'EX042077;EX042;' ';'").output, "EX042077;\n");
        EXPECT_EQ(simulator.end(), 0);
    }
    EXPECT_FALSE(std::filesystem::is_symlink(link));
    EXPECT_NE(fakes::fileContent(state).find("menu 042 = 077\n"), std::string::npos);
    fakes::SimulatorProcess again(simulatorProgram, {"--state", state});
    EXPECT_EQ(rigctl(again.device(), "f W 'EX042;' ';'").output, "14195500\nEX042077;\n");
}

TEST(SimulatorTest, UnplugsItselfAndRefusesNonsense) {
    fakes::SimulatorProcess gone(simulatorProgram, {"--fault", "unplugged=1"});
    const OpenDevice program(gone.device());
    program.say("ID;ID;");
    EXPECT_EQ(gone.waitForEnd(5000), 0);
    const auto wrong = run(simulatorProgram + " --fault mute");
    EXPECT_EQ(wrong.code, 2);
    EXPECT_NE(wrong.output.find("There is no fault \"mute\"."), std::string::npos);
    EXPECT_EQ(run(simulatorProgram + " --turnaround -1").code, 2);
    EXPECT_EQ(run(simulatorProgram + " --link /tmp").code, 1);
}

}  // namespace
}  // namespace korvex
