#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/RuntimeError.h"

namespace korvex::pty {

/// A pseudo terminal: programs open its device, again and again if they like; this side reads what they write.
class Pty {
public:
    Pty() = default;
    ~Pty();
    Pty(const Pty&) = delete;
    Pty& operator=(const Pty&) = delete;

    Failure open();
    const std::string& deviceName() const { return m_deviceName; }

    /// Makes a symbolic link to the device, in the place of one that is there already; what is no link is left alone.
    Failure makeLink(const std::string& path);

    /// Returns when a program has written or closed the device, `other` can be read, a signal has come, or `ms` are
    /// over; without `ms`, it waits for as long as it takes.
    void wait(std::optional<double> ms, int other) const;

    /// One of them can be read when a program has written, or closed the device.
    std::vector<int> descriptors() const;

    std::string read();
    void write(std::string_view text);

    /// Tells whether a program has left since the last call and no other has the device open. The next one then finds a
    /// fresh device: no old answers, no other program's settings or locks.
    bool lastUserLeft();

private:
    bool someoneLeft() const;
    bool openSlave();
    void watchSlave();
    void removeLink();

    int m_master = -1;
    int m_slave = -1;  // kept open, so that the device lives while no program has it
    int m_watch = -1;
    int m_watched = -1;
    std::string m_deviceName;
    std::string m_link;
};

}  // namespace korvex::pty
