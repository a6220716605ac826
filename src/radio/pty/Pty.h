#pragma once

#include <string>
#include <string_view>

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

    int readable() const { return m_master; }   ///< for poll: a program has written
    int usersWatch() const { return m_watch; }  ///< for poll: a program has opened or closed the device; -1: unknown

    std::string read();
    void write(std::string_view text);

    /// Who has opened and closed the device since the last call.
    struct Users {
        bool lastOneLeft = false;
        bool anyNow = true;
    };
    Users users();

    /// The next program finds no old answers, and no other program's settings or locks.
    void freshen();

private:
    void removeLink();

    int m_master = -1;
    int m_slave = -1;  // kept open, so that the device lives while no program has it
    int m_watch = -1;
    int m_users = 0;
    std::string m_deviceName;
    std::string m_link;
};

}  // namespace korvex::pty
