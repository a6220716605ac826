#include "platform/ChildProgram.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include "platform/posix/Descriptor.h"

extern char** environ;

namespace korvex::childprogram {

namespace {

using Clock = std::chrono::steady_clock;

RuntimeError failed(const std::string& program, const std::string& why) {
    return {errors::DeviceIo, program + " " + why};
}

/// One of its streams.
struct Stream {
    Descriptor ours;
    Descriptor theirs;
    std::string text;

    bool open() {
        std::array<int, 2> ends{};
        if (::pipe2(ends.data(), O_CLOEXEC) != 0) return false;
        ours = Descriptor(ends[0]);
        theirs = Descriptor(ends[1]);
        return true;
    }
    /// What is there now.
    void take() {
        std::array<char, 65536> buffer{};
        const auto count = ::read(ours.get(), buffer.data(), buffer.size());
        if (count > 0) text.append(buffer.data(), static_cast<std::size_t>(count));
        if (count == 0 || (count < 0 && errno != EINTR)) ours.close();
    }
};

/// Whoever goes before the program has ended, ends it.
class Child {
public:
    explicit Child(pid_t pid) : m_pid(pid) {}
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;
    ~Child() {
        if (m_pid <= 0) return;
        ::kill(m_pid, SIGKILL);
        wait(0);
    }

    bool hasEnded() { return wait(WNOHANG); }
    int code() const { return WIFEXITED(m_status) ? WEXITSTATUS(m_status) : 128 + WTERMSIG(m_status); }

private:
    bool wait(int flags) {
        pid_t ended = -1;
        do ended = ::waitpid(m_pid, &m_status, flags);
        while (ended < 0 && errno == EINTR);
        if (ended != 0) m_pid = 0;
        return ended != 0;
    }

    pid_t m_pid;
    int m_status = 0;
};

/// The error number, 0 when it runs.
int start(const Order& order, const Stream& out, const Stream& err, pid_t& pid) {
    std::string name = order.program;
    std::vector<std::string> arguments = order.arguments;
    std::vector<char*> words{name.data()};
    for (auto& argument : arguments) words.push_back(argument.data());
    words.push_back(nullptr);

    ::posix_spawn_file_actions_t streams;
    ::posix_spawnattr_t attributes;
    ::sigset_t usual;
    ::sigemptyset(&usual);
    ::sigaddset(&usual, SIGPIPE);
    ::posix_spawn_file_actions_init(&streams);
    ::posix_spawnattr_init(&attributes);
    ::posix_spawn_file_actions_addopen(&streams, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    ::posix_spawn_file_actions_adddup2(&streams, out.theirs.get(), STDOUT_FILENO);
    ::posix_spawn_file_actions_adddup2(&streams, err.theirs.get(), STDERR_FILENO);
    ::posix_spawnattr_setsigdefault(&attributes, &usual);
    ::posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);
    const int error = ::posix_spawnp(&pid, name.c_str(), &streams, &attributes, words.data(), environ);
    ::posix_spawnattr_destroy(&attributes);
    ::posix_spawn_file_actions_destroy(&streams);
    return error;
}

/// Both at once, since a program may wait until one of them is read. False when the time or the room is used up.
bool readAll(const Order& order, Stream& out, Stream& err, Clock::time_point deadline) {
    while (out.ours.isOpen() || err.ours.isOpen()) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now()).count();
        if (left <= 0 || out.text.size() + err.text.size() > order.mostBytes) return false;
        std::array<pollfd, 2> wanted{{{out.ours.get(), POLLIN, 0}, {err.ours.get(), POLLIN, 0}}};
        ::poll(wanted.data(), wanted.size(), static_cast<int>(left));
        if (wanted[0].revents != 0) out.take();
        if (wanted[1].revents != 0) err.take();
    }
    return out.text.size() + err.text.size() <= order.mostBytes;
}

}  // namespace

Result<End> run(const Order& order) {
    const auto deadline = Clock::now() + std::chrono::milliseconds(order.mostMs);
    Stream out;
    Stream err;
    pid_t pid = 0;
    if (!out.open() || !err.open())
        return failed(order.program, "could not be started: " + std::string(std::strerror(errno)));
    if (const int error = start(order, out, err, pid); error == ENOENT) {
        return RuntimeError{errors::FileNotFound, order.program + " is not installed"};
    } else if (error != 0) {
        return failed(order.program, "could not be started: " + std::string(std::strerror(error)));
    }
    Child child(pid);
    out.theirs.close();
    err.theirs.close();
    if (!readAll(order, out, err, deadline)) {
        const bool tooMuch = out.text.size() + err.text.size() > order.mostBytes;
        return failed(order.program, tooMuch ? "printed too much" : "took too long and was ended");
    }
    while (!child.hasEnded()) {  // its streams are closed: this takes no time, or it hangs
        if (Clock::now() >= deadline) return failed(order.program, "took too long and was ended");
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return End{child.code(), std::move(out.text), std::move(err.text)};
}

}  // namespace korvex::childprogram
