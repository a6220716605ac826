#include "platform/EndSignals.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <ctime>
#include <fcntl.h>
#include <unistd.h>

namespace korvex::endsignals {

namespace {

constexpr int signalBase = 128;
constexpr unsigned graceSeconds = 1;
constexpr long sameSignalMs = 250;

// NOLINTBEGIN(cppcoreguidelines-avoid-non-const-global-variables): a signal handler knows nothing else
std::array<int, 2> pipeEnds{-1, -1};
volatile std::sig_atomic_t first = 0;
timespec firstAt{};
// NOLINTEND(cppcoreguidelines-avoid-non-const-global-variables)

long msSinceFirst() {
    timespec now{};
    ::clock_gettime(CLOCK_MONOTONIC, &now);
    return (now.tv_sec - firstAt.tv_sec) * 1'000 + (now.tv_nsec - firstAt.tv_nsec) / 1'000'000;
}

void onSignal(int number) {
    if (first != 0) {
        if (msSinceFirst() > sameSignalMs) ::_exit(signalBase + number);
        return;
    }
    const int before = errno;
    ::clock_gettime(CLOCK_MONOTONIC, &firstAt);
    first = number;
    static_cast<void>(!::write(pipeEnds[1], "x", 1));
    ::alarm(graceSeconds);
    errno = before;
}

void onAlarm(int) {
    ::_exit(exitCode());
}

void catchWith(void (*handler)(int), int number) {
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    for (const int other : {SIGINT, SIGTERM, SIGHUP, SIGALRM}) ::sigaddset(&action.sa_mask, other);
    ::sigaction(number, &action, nullptr);
}

bool isIgnored(int number) {
    struct sigaction action {};
    return ::sigaction(number, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

}  // namespace

void watch() {
    if (pipeEnds[0] >= 0 || ::pipe2(pipeEnds.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
    catchWith(onAlarm, SIGALRM);
    sigset_t alarm;
    ::sigemptyset(&alarm);
    ::sigaddset(&alarm, SIGALRM);
    ::sigprocmask(SIG_UNBLOCK, &alarm, nullptr);
    for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
        if (!isIgnored(number)) catchWith(onSignal, number);
    }
}

int descriptor() {
    return pipeEnds[0];
}

int came() {
    return first;
}

int exitCode() {
    return signalBase + first;
}

void endMayTakeLong() {
    ::alarm(0);
}

void ignoreBrokenPipes() {
    std::signal(SIGPIPE, SIG_IGN);
}

}  // namespace korvex::endsignals
