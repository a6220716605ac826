#include <array>
#include <chrono>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <string>
#include <sys/ioctl.h>
#include <termios.h>
#include <thread>
#include <unistd.h>

#include "fakes/SimulatorProcess.h"

namespace korvex {
namespace {

void pass(int ms) {
    std::this_thread::sleep_for(std::chrono::milliseconds(ms));
}

/// A program that has the device open and does nothing about the terminal's settings.
class Program {
public:
    explicit Program(const std::string& device) : m_fd(::open(device.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC)) {}
    ~Program() { ::close(m_fd); }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

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
    fakes::SimulatorProcess simulator(BINARY_DIR "/ft2000sim");
    ASSERT_FALSE(simulator.device().empty());
    {
        const Program hasty(simulator.device());
        hasty.say("KS031;FA;FB;ID");  // a set counts; nobody waits for the answers, and the rest is no command yet
        termios settings{};
        ASSERT_EQ(::tcgetattr(hasty.fd(), &settings), 0);
        settings.c_lflag |= ICANON | ECHO;
        ASSERT_EQ(::tcsetattr(hasty.fd(), TCSANOW, &settings), 0);
        ::ioctl(hasty.fd(), TIOCEXCL);
    }
    pass(100);
    for (int i = 0; i < 3; ++i) {
        const Program next(simulator.device());
        ASSERT_GE(next.fd(), 0);
        next.say("KS;\r\n");
        EXPECT_EQ(next.hear(), "KS031;") << i;
    }
    EXPECT_EQ(simulator.end(), 0);
}

TEST(PtyTest, TwoProgramsShareOneRadioUntilTheLastLeaves) {
    fakes::SimulatorProcess simulator(BINARY_DIR "/ft2000sim", {"--turnaround", "100"});
    const Program first(simulator.device());
    first.say("MD0;");
    { const Program second(simulator.device()); }
    EXPECT_EQ(first.hear(), "MD02;");  // the other one's leaving took nothing away
}

}  // namespace
}  // namespace korvex
