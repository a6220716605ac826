#include "KilledProgram.h"

#include <array>
#include <csignal>
#include <cstdint>
#include <fcntl.h>
#include <poll.h>
#include <string_view>
#include <sys/inotify.h>
#include <sys/ptrace.h>
#include <sys/uio.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/Descriptor.h"

namespace korvex {

namespace {

using Clock = std::chrono::steady_clock;

/// The text that an argument of a system call may point to; empty when it points nowhere.
std::string textAt(pid_t pid, std::uint64_t address) {
    constexpr std::uint64_t page = 4096;
    std::array<char, page> text{};
    const iovec local = {text.data(), text.size()};
    const std::uint64_t first = page - address % page;
    // NOLINTNEXTLINE(performance-no-int-to-ptr): an address of the other program
    const auto pointer = [](std::uint64_t place) { return reinterpret_cast<void*>(place); };
    const std::array<iovec, 2> remote = {{{pointer(address), first}, {pointer(address + first), page - first}}};
    const auto got = ::process_vm_readv(pid, &local, 1, remote.data(), remote.size(), 0);
    if (got <= 0) return {};
    const std::string_view all(text.data(), static_cast<std::size_t>(got));
    return std::string(all.substr(0, all.find('\0')));
}

void passUntil(Clock::time_point end) {
    while (Clock::now() < end) continue;  // a sleep would be longer than a whole save
}

}  // namespace

KilledProgram::KilledProgram(std::vector<std::string> arguments) : m_arguments(std::move(arguments)) {}

void KilledProgram::start(bool watched) {
    std::vector<char*> pointers;
    for (auto& text : m_arguments) pointers.push_back(text.data());
    pointers.push_back(nullptr);
    m_pid = ::fork();
    if (m_pid != 0) return;
    const int nowhere = ::open("/dev/null", O_RDWR);
    ::dup2(nowhere, STDOUT_FILENO);
    ::dup2(nowhere, STDERR_FILENO);
    // The leak checker is such a watcher itself and cannot work beside one.
    ::setenv("ASAN_OPTIONS", "detect_leaks=0", 1);
    if (watched && ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) ::_exit(126);
    ::execv(pointers.front(), pointers.data());
    ::_exit(127);
}

void KilledProgram::kill() {
    if (m_pid <= 0) return;
    ::kill(m_pid, SIGKILL);
    ::waitpid(m_pid, nullptr, 0);
    m_pid = -1;
}

bool KilledProgram::canBeWatched() {
    KilledProgram program({"/bin/true"});
    return program.killAtSystemCall("", 0);
}

bool KilledProgram::killAtSystemCall(const std::string& folder, int moment) {
    start(true);
    int status = 0;
    if (::waitpid(m_pid, &status, 0) != m_pid || !WIFSTOPPED(status)) return false;
    ::ptrace(PTRACE_SETOPTIONS, m_pid, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
    bool counts = false;
    while (toNextSystemCall()) {
        counts = counts || names(folder);
        if (counts && moment-- == 0) {
            kill();
            return true;
        }
    }
    return false;
}

bool KilledProgram::toNextSystemCall() {
    constexpr int atSystemCall = SIGTRAP | 0x80;
    for (int signal = 0;;) {
        int status = 0;
        if (::ptrace(PTRACE_SYSCALL, m_pid, nullptr, signal) != 0) return false;
        if (::waitpid(m_pid, &status, 0) != m_pid) return false;
        if (!WIFSTOPPED(status)) {
            m_pid = -1;
            return false;
        }
        if (WSTOPSIG(status) == atSystemCall) return true;
        signal = WSTOPSIG(status);
    }
}

bool KilledProgram::names(const std::string& folder) const {
    __ptrace_syscall_info call{};
    if (::ptrace(PTRACE_GET_SYSCALL_INFO, m_pid, sizeof call, &call) <= 0) return false;
    if (call.op != PTRACE_SYSCALL_INFO_ENTRY) return false;
    // A path is the first or the second argument, whatever the call is.
    return textAt(m_pid, call.entry.args[0]).starts_with(folder) ||
           textAt(m_pid, call.entry.args[1]).starts_with(folder);
}

void KilledProgram::killAfter(std::chrono::microseconds time) {
    const auto begin = Clock::now();
    start(false);
    passUntil(begin + time);
    kill();
}

void KilledProgram::killAfterFirstFileIn(const std::string& folder, std::chrono::microseconds time) {
    const Descriptor watch(::inotify_init1(IN_CLOEXEC));
    ::inotify_add_watch(watch.get(), folder.c_str(), IN_CREATE | IN_MOVED_TO);
    start(false);
    pollfd watched = {watch.get(), POLLIN, 0};
    ::poll(&watched, 1, 5'000);
    passUntil(Clock::now() + time);
    kill();
}

}  // namespace korvex
