#include "platform/qt/QtSerialDevice.h"

#include <QSocketNotifier>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <termios.h>

#include "platform/PortProblem.h"
#include "platform/posix/PortHolder.h"
#include "platform/posix/TtyFormat.h"
#include "platform/qt/QtClock.h"
#include "qt/Pty.h"

namespace korvex {
namespace {

const LineSettings usual{};

class SerialDeviceOnPty : public ::testing::Test {
protected:
    bool runUntil(const std::function<bool()>& done, int limitMs = 3000) {
        for (const auto end = clock.now() + limitMs; !done() && clock.now() < end;) clock.letEventsRun(5);
        return done();
    }
    Failure open() { return device.open(usual, Handshaking::None); }

    QtClock clock;
    Pty pty;
    QtSerialDevice device{pty.device};
};

TEST_F(SerialDeviceOnPty, CarriesEveryByteBothWays) {
    ASSERT_FALSE(open());
    std::string all;
    for (int i = 0; i < 256; ++i) all += static_cast<char>(i);
    device.write(all);
    clock.letEventsRun(50);
    EXPECT_EQ(pty.receive(), all);
    EXPECT_EQ(device.unsent(), 0U);

    std::string got;
    auto reading = device.received.connect([&] { got += device.read(); });
    pty.send(all);
    EXPECT_TRUE(got.empty());
    EXPECT_TRUE(runUntil([&] { return got.size() == all.size(); }));
    EXPECT_EQ(got, all);
}

TEST_F(SerialDeviceOnPty, TellsOfNewDataWhileAHandlerSitsInADialog) {
    ASSERT_FALSE(open());
    std::vector<std::string> got;
    auto reading = device.received.connect([&] {
        got.push_back(device.read());
        if (got.size() > 1) return;
        pty.send("second;");
        EXPECT_TRUE(runUntil([&] { return got.size() == 2; }));
    });
    pty.send("first;");
    EXPECT_TRUE(runUntil([&] { return !got.empty(); }));
    EXPECT_EQ(got, (std::vector<std::string>{"first;", "second;"}));
}

TEST_F(SerialDeviceOnPty, AHandlerMayReopenOrDestroyTheDevice) {
    auto other = std::make_unique<QtSerialDevice>(pty.device);
    ASSERT_FALSE(other->open(usual, Handshaking::None));
    int calls = 0;
    auto reading = other->received.connect([&] {
        if (++calls == 1) {
            EXPECT_FALSE(other->open(usual, Handshaking::None));
            pty.send("again;");
        } else {
            other.reset();
        }
    });
    pty.send("once;");
    EXPECT_TRUE(runUntil([&] { return !other; }));
    EXPECT_EQ(calls, 2);
}

TEST_F(SerialDeviceOnPty, DiscardingWhatIsJustAnnouncedDoesNoHarm) {
    // Another event of the same turn of the event loop comes first and throws away what the device was to read.
    Pty earlier;
    const int handle = ::open(earlier.device.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK);
    QSocketNotifier notifier(handle, QSocketNotifier::Read);
    QObject::connect(&notifier, &QSocketNotifier::activated, [&] {
        notifier.setEnabled(false);
        device.discardWaiting();
    });
    ASSERT_FALSE(open());
    bool lost = false;
    std::string got;
    auto losing = device.lost.connect([&](const RuntimeError&) { lost = true; });
    auto reading = device.received.connect([&] { got += device.read(); });
    earlier.send("x\n");
    pty.send("thrown away;");
    clock.letEventsRun(100);
    EXPECT_EQ(got, "");
    pty.send("kept;");
    EXPECT_TRUE(runUntil([&] { return !got.empty(); }));
    EXPECT_EQ(got, "kept;");
    EXPECT_FALSE(lost);
    notifier.setEnabled(false);
    ::close(handle);
}

TEST_F(SerialDeviceOnPty, AnUnpluggedDeviceIsToldOfOnceAndIsQuiet) {
    ASSERT_FALSE(open());
    std::vector<RuntimeError> told;
    auto losing = device.lost.connect([&](const RuntimeError& error) {
        told.push_back(error);
        device.write("into the void");
        EXPECT_EQ(device.read(), "");
    });
    device.write("FA;");
    pty.unplug();
    EXPECT_TRUE(told.empty());
    EXPECT_TRUE(runUntil([&] { return !told.empty(); }));
    const auto before = std::clock();
    clock.letEventsRun(300);
    EXPECT_LT(std::clock() - before, 60 * CLOCKS_PER_SEC / 1000);
    ASSERT_EQ(told.size(), 1U);
    EXPECT_EQ(told[0].number, errors::PortGone);
    EXPECT_NE(told[0].text.find(pty.device), std::string::npos);
}

TEST_F(SerialDeviceOnPty, ClosingNeverWaitsForWhatIsUnsent) {
    ASSERT_FALSE(open());
    device.write(std::string(200'000, 'x'));  // nobody reads at the far end
    clock.letEventsRun(30);
    EXPECT_GT(device.unsent(), 0U);
    const auto before = clock.now();
    device.close();
    EXPECT_LT(clock.now() - before, 500);
    EXPECT_EQ(device.unsent(), 0U);
}

TEST_F(SerialDeviceOnPty, TakesEveryFormatAndHandshaking) {
    for (const char* format : {"4800,n,8,2", "110,n,8,1", "14400,e,7,1", "256000,m,8,1", "9600,s,4,1.5"}) {
        EXPECT_FALSE(device.open(*parseLineSettings(format), Handshaking::None)) << format;
    }
    for (const auto handshaking : {Handshaking::XonXoff, Handshaking::Rts, Handshaking::RtsXonXoff}) {
        EXPECT_FALSE(device.open(usual, handshaking));
    }
}

TEST(SerialFormat, WhatADeviceCannotDoIsNamed) {
    const auto settings = [](const char* text) { return *parseLineSettings(text); };
    EXPECT_EQ(tty::impossibleFormat(settings("4800,n,4,1")), "4 data bits");
    EXPECT_EQ(tty::impossibleFormat(settings("4800,n,8,1.5")), "1.5 stop bits");
    EXPECT_EQ(tty::impossibleFormat(settings("4800,n,5,1.5")), "");
    const auto verdict = [&](const char* wanted, unsigned flags, unsigned speed, Handshaking handshaking) {
        return tty::notTaken(flags, speed, settings(wanted), handshaking);
    };
    EXPECT_EQ(verdict("4800,m,8,1", CS8, 4800, Handshaking::None), "mark parity");
    EXPECT_EQ(verdict("4800,n,7,1", CS8, 4800, Handshaking::None), "7 data bits");
    EXPECT_EQ(verdict("4800,n,8,2", CS8, 4800, Handshaking::None), "the wanted number of stop bits");
    EXPECT_EQ(verdict("4800,n,8,2", CS8 | CSTOPB, 4800, Handshaking::Rts), "handshaking with RTS");
    EXPECT_EQ(verdict("38400,n,8,1", CS8, 9600, Handshaking::None), "38400 bit/s");
    EXPECT_EQ(verdict("57600,e,7,2", CS7 | CSTOPB | PARENB, 57'142, Handshaking::None), "");
}

/// Runs `work` in another process until the end of the scope.
class OtherProgram {
public:
    explicit OtherProgram(const std::function<void()>& work) {
        int ready[2];
        if (::pipe(ready) != 0) return;
        pid = ::fork();
        if (pid == 0) {
            work();
            static_cast<void>(!::write(ready[1], "!", 1));
            for (;;) ::pause();
        }
        char byte = 0;
        static_cast<void>(!::read(ready[0], &byte, 1));
        ::close(ready[0]);
        ::close(ready[1]);
    }
    ~OtherProgram() {
        ::kill(pid, SIGKILL);
        ::waitpid(pid, nullptr, 0);
    }
    pid_t pid = -1;
};

TEST_F(SerialDeviceOnPty, ABusyPortNamesWhoHasIt) {
    const auto busyText = [this](pid_t pid) {
        const auto failure = open();
        if (!failure || failure->number != errors::PortAlreadyOpen) return std::string("not refused");
        const auto process = "(process " + std::to_string(pid) + ")";
        return failure->text.find(process) != std::string::npos ? std::string("named") : failure->text;
    };
    {
        OtherProgram locking([this] { ::flock(::open(pty.device.c_str(), O_RDWR | O_NOCTTY), LOCK_EX); });
        EXPECT_EQ(busyText(locking.pid), "named");
        EXPECT_TRUE(portproblem::heldByOther(pty.device));
    }
    EXPECT_FALSE(portproblem::heldByOther(pty.device)) << "whoever made a pseudo terminal has it open, too";
    const std::string lockFile = lockFileOf(pty.device);
    {
        OtherProgram old([] {});
        std::ofstream(lockFile) << "      " << old.pid << "\n";
        EXPECT_EQ(busyText(old.pid), "named");
        std::ofstream(lockFile) << "0" << old.pid << " minicom root\n";
        EXPECT_EQ(busyText(old.pid), "named");
        std::ofstream(lockFile) << old.pid << "\n";
    }
    EXPECT_FALSE(open()) << "the program that laid the lock file runs no more";
    QtSerialDevice second(pty.device);
    const auto failure = second.open(usual, Handshaking::None);
    ASSERT_TRUE(failure);
    EXPECT_NE(failure->text.find("another window of this program"), std::string::npos) << failure->text;
    device.close();
    EXPECT_FALSE(std::filesystem::exists(lockFile));
}

/// Every user may lay files there: a pipe that nobody writes into, a link to an endless file, a very long one.
TEST_F(SerialDeviceOnPty, ALockFileOfAnyMakeupNeitherFreezesNorFillsTheProgram) {
    const std::string lockFile = lockFileOf(pty.device);
    const auto refusedThen = [&] {
        const auto holder = lockHolder(pty.device);
        const auto failure = open();
        std::filesystem::remove(lockFile);
        return failure && !holder && failure->text.find("sudo rm " + lockFile) != std::string::npos;
    };
    ASSERT_EQ(::mkfifo(lockFile.c_str(), 0666), 0);
    EXPECT_TRUE(refusedThen());
    std::filesystem::create_symlink("/dev/zero", lockFile);
    EXPECT_TRUE(refusedThen());
    std::filesystem::create_symlink("/nowhere", lockFile);
    EXPECT_TRUE(refusedThen());
    std::ofstream(lockFile) << "1";
    std::filesystem::resize_file(lockFile, std::uintmax_t{1} << 40U);
    EXPECT_TRUE(refusedThen());
    std::ofstream(lockFile) << std::string(64, ' ') << ::getppid() << "\n";
    EXPECT_FALSE(lockHolder(pty.device)) << "64 bytes are looked at";
    std::filesystem::remove(lockFile);
    EXPECT_FALSE(open());
}

TEST_F(SerialDeviceOnPty, TellsApartMissingForbiddenAndOtherThings) {
    const auto failureOf = [](const std::string& name) {
        const auto failure = QtSerialDevice(name).open(usual, Handshaking::None);
        return failure.value_or(RuntimeError{0, "opened"});
    };
    EXPECT_EQ(failureOf("/dev/ttyNowhere9").number, errors::PortGone);
    EXPECT_EQ(failureOf("/dev/null").number, errors::PortGone);
    EXPECT_EQ(failureOf("/tmp").number, errors::PortGone);

    const auto link = std::filesystem::temp_directory_path() / ("korvex-link-" + std::to_string(::getpid()));
    std::filesystem::create_symlink(pty.device, link);
    EXPECT_EQ(failureOf(link.string()).text, "opened");
    std::filesystem::remove(link);

    constexpr uid_t nobody = 65534;
    ::chmod(pty.device.c_str(), 0060);
    const bool wasRoot = ::geteuid() == 0;
    ASSERT_EQ(wasRoot ? ::setegid(nobody) + ::seteuid(nobody) : 0, 0);
    const auto forbidden = failureOf(pty.device);
    ASSERT_EQ(wasRoot ? ::seteuid(0) + ::setegid(0) : 0, 0);
    EXPECT_EQ(forbidden.number, errors::PermissionDenied);
    EXPECT_NE(forbidden.text.find("group \""), std::string::npos) << forbidden.text;
}

}  // namespace
}  // namespace korvex
