#pragma once

#include <cstdio>
#include <cstdlib>
#include <poll.h>
#include <signal.h>
#include <string>
#include <sys/wait.h>
#include <utility>
#include <vector>

namespace korvex::fakes {

/// The program ft2000sim, running on its own; it is ended with this object.
class SimulatorProcess {
public:
    /// Starts the program at `binary` and waits for the name of its device. When that fails, device() is empty.
    explicit SimulatorProcess(const std::string& binary, const std::vector<std::string>& arguments = {}) {
        std::string command = "echo $$; exec '" + binary + "'";
        for (const auto& argument : arguments) command += " '" + argument + "'";
        m_output = ::popen(command.c_str(), "re");
        if (m_output == nullptr) return;
        m_pid = std::atoi(readLine().c_str());
        m_device = readLine();
    }
    ~SimulatorProcess() { end(); }
    SimulatorProcess(const SimulatorProcess&) = delete;
    SimulatorProcess& operator=(const SimulatorProcess&) = delete;

    /// The pseudo terminal that programs open, for example "/dev/pts/3".
    const std::string& device() const { return m_device; }

    /// Ends it as a user would and gives its exit status; -1 when it did not end by itself or was not running.
    int end() {
        if (m_output == nullptr) return -1;
        ::kill(m_pid, SIGTERM);
        const int status = waitForEnd(10'000);
        if (m_output == nullptr) return status;
        ::kill(m_pid, SIGKILL);
        ::pclose(std::exchange(m_output, nullptr));
        return -1;
    }

    /// Waits until it ends by itself, as after a fault that unplugs it; its exit status, -1 after `limitMs`.
    /// Its output ends with it.
    int waitForEnd(int limitMs) {
        if (m_output == nullptr) return -1;
        pollfd watched = {::fileno(m_output), POLLIN, 0};
        if (::poll(&watched, 1, limitMs) != 1) return -1;
        while (std::fgetc(m_output) != EOF) continue;
        const int status = ::pclose(std::exchange(m_output, nullptr));
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

private:
    std::string readLine() {
        std::string line;
        for (int c = std::fgetc(m_output); c != EOF && c != '\n'; c = std::fgetc(m_output))
            line += static_cast<char>(c);
        return line;
    }

    pid_t m_pid = -1;
    std::FILE* m_output = nullptr;
    std::string m_device;
};

}  // namespace korvex::fakes
