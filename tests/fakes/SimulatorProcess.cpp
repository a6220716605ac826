#include "fakes/SimulatorProcess.h"

#include <cstdlib>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <utility>

namespace korvex::fakes {

SimulatorProcess::SimulatorProcess(const std::string& binary, const std::vector<std::string>& arguments) {
    std::string command = "echo $$; exec '" + binary + "'";
    for (const auto& argument : arguments) command += " '" + argument + "'";
    m_output = ::popen(command.c_str(), "re");
    if (m_output == nullptr) return;
    m_pid = std::atoi(readLine().c_str());
    m_device = readLine();
}

std::string SimulatorProcess::readLine() {
    std::string line;
    for (int c = std::fgetc(m_output); c != EOF && c != '\n'; c = std::fgetc(m_output)) line += static_cast<char>(c);
    return line;
}

int SimulatorProcess::end() {
    if (m_output == nullptr) return -1;
    ::kill(m_pid, SIGTERM);
    const int status = waitForEnd(10'000);
    if (m_output == nullptr) return status;
    ::kill(m_pid, SIGKILL);
    ::pclose(std::exchange(m_output, nullptr));
    return -1;
}

/// Its output ends with it.
int SimulatorProcess::waitForEnd(int limitMs) {
    if (m_output == nullptr) return -1;
    pollfd watched = {::fileno(m_output), POLLIN, 0};
    if (::poll(&watched, 1, limitMs) != 1) return -1;
    while (std::fgetc(m_output) != EOF) continue;
    const int status = ::pclose(std::exchange(m_output, nullptr));
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace korvex::fakes
