#pragma once

#include <cstdio>
#include <string>
#include <sys/types.h>
#include <vector>

namespace korvex::fakes {

/// The program ft2000sim, running on its own; it is ended with this object.
class SimulatorProcess {
public:
    /// Starts the program at `binary` and waits for the name of its device. When that fails, device() is empty.
    explicit SimulatorProcess(const std::string& binary, const std::vector<std::string>& arguments = {});
    ~SimulatorProcess() { end(); }
    SimulatorProcess(const SimulatorProcess&) = delete;
    SimulatorProcess& operator=(const SimulatorProcess&) = delete;

    /// The pseudo terminal that programs open, for example "/dev/pts/3".
    const std::string& device() const { return m_device; }

    /// Ends it as a user would and gives its exit status; -1 when it did not end by itself or was not running.
    int end();

    /// Waits until it ends by itself, as after a fault that unplugs it; its exit status, -1 after `limitMs`.
    int waitForEnd(int limitMs);

private:
    std::string readLine();

    pid_t m_pid = -1;
    std::FILE* m_output = nullptr;
    std::string m_device;
};

}  // namespace korvex::fakes
