#include "fakes/SimulatorProcess.h"

#include <array>
#include <chrono>
#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace korvex::fakes {

namespace {

constexpr int patienceMs = 10'000;

std::vector<char*> argumentPointers(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (auto& text : texts) pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

}  // namespace

SimulatorProcess::SimulatorProcess(const std::string& binary, const std::vector<std::string>& arguments) {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) return;
    std::vector<std::string> texts = {binary};
    texts.insert(texts.end(), arguments.begin(), arguments.end());
    const auto pointers = argumentPointers(texts);
    m_pid = ::fork();
    if (m_pid == 0) {
        ::dup2(ends[1], STDOUT_FILENO);
        ::execv(binary.c_str(), pointers.data());
        ::_exit(127);
    }
    ::close(ends[1]);
    m_output = ends[0];
    m_device = readFirstLine(m_output);
}

SimulatorProcess::~SimulatorProcess() {
    end();
    if (m_output >= 0) ::close(m_output);
}

std::string SimulatorProcess::readFirstLine(int from) {
    std::string line;
    pollfd watched = {from, POLLIN, 0};
    while (::poll(&watched, 1, patienceMs) == 1) {
        char c = 0;
        if (::read(from, &c, 1) != 1) return {};
        if (c == '\n') return line;
        line += c;
    }
    return {};
}

int SimulatorProcess::end() {
    if (m_pid <= 0) return -1;
    ::kill(m_pid, SIGTERM);
    const int status = waitForEnd(patienceMs);
    if (m_pid > 0) {
        ::kill(m_pid, SIGKILL);
        ::waitpid(m_pid, nullptr, 0);
        m_pid = -1;
    }
    return status;
}

int SimulatorProcess::waitForEnd(int limitMs) {
    const auto until = std::chrono::steady_clock::now() + std::chrono::milliseconds(limitMs);
    while (m_pid > 0) {
        int status = 0;
        if (::waitpid(m_pid, &status, WNOHANG) == m_pid) {
            m_pid = -1;
            return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        }
        if (std::chrono::steady_clock::now() >= until) break;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return -1;
}

}  // namespace korvex::fakes
