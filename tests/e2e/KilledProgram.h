#pragma once

#include <array>
#include <csignal>
#include <cstdint>
#include <fcntl.h>
#include <string>
#include <string_view>
#include <sys/ptrace.h>
#include <sys/uio.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace korvex {

/// A program that is killed, as by a power switch, at a moment that the test chooses.
class KilledProgram {
public:
    explicit KilledProgram(std::vector<std::string> arguments) : m_arguments(std::move(arguments)) {}
    KilledProgram(const KilledProgram&) = delete;
    KilledProgram& operator=(const KilledProgram&) = delete;
    ~KilledProgram() { kill(); }

    /// Whether this machine lets one program watch another one's system calls.
    static bool canBeWatched() { return KilledProgram({"/bin/true"}).killAtSystemCall("", 0); }

    /// Lets it run to a moment between two system calls and kills it there: 0 is before the first one that names a file
    /// in `folder`, 1 after it, 2 before the next one. False when it came to its end before that.
    bool killAtSystemCall(const std::string& folder, int moment) {
        start();
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

private:
    void start() {
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
        if (::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) ::_exit(126);
        ::execv(pointers.front(), pointers.data());
        ::_exit(127);
    }

    void kill() {
        if (m_pid <= 0) return;
        ::kill(m_pid, SIGKILL);
        ::waitpid(m_pid, nullptr, 0);
        m_pid = -1;
    }

    bool toNextSystemCall() {
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

    bool names(const std::string& folder) const {
        __ptrace_syscall_info call{};
        if (::ptrace(PTRACE_GET_SYSCALL_INFO, m_pid, sizeof call, &call) <= 0) return false;
        if (call.op != PTRACE_SYSCALL_INFO_ENTRY) return false;
        // A path is the first or the second argument, whatever the call is.
        return textAt(call.entry.args[0]).starts_with(folder) || textAt(call.entry.args[1]).starts_with(folder);
    }

    /// The text that an argument of a system call may point to; empty when it points nowhere.
    std::string textAt(std::uint64_t address) const {
        constexpr std::uint64_t page = 4096;
        std::array<char, page> text{};
        const iovec local = {text.data(), text.size()};
        const std::uint64_t first = page - address % page;
        // NOLINTNEXTLINE(performance-no-int-to-ptr): an address of the other program
        const auto pointer = [](std::uint64_t place) { return reinterpret_cast<void*>(place); };
        const std::array<iovec, 2> remote = {{{pointer(address), first}, {pointer(address + first), page - first}}};
        const auto got = ::process_vm_readv(m_pid, &local, 1, remote.data(), remote.size(), 0);
        if (got <= 0) return {};
        const std::string_view all(text.data(), static_cast<std::size_t>(got));
        return std::string(all.substr(0, all.find('\0')));
    }

    std::vector<std::string> m_arguments;
    pid_t m_pid = -1;
};

}  // namespace korvex
