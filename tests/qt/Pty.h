#pragma once

#include <array>
#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <string>
#include <string_view>
#include <unistd.h>
#include <utility>

namespace korvex {

/// A pseudo terminal: the test holds the far end, the program opens `device`.
class Pty {
public:
    Pty() {
        std::array<char, 64> name{};
        int slave = -1;
        if (::openpty(&m_far, &slave, name.data(), nullptr, nullptr) != 0) return;
        ::close(slave);
        ::fcntl(m_far, F_SETFL, O_NONBLOCK);
        ::fcntl(m_far, F_SETFD, FD_CLOEXEC);
        device = name.data();
    }
    Pty(const Pty&) = delete;
    Pty& operator=(const Pty&) = delete;
    ~Pty() { unplug(); }

    void send(std::string_view text) const { static_cast<void>(!::write(m_far, text.data(), text.size())); }
    /// What has arrived within 200 ms after the last byte.
    std::string receive() const {
        std::string all;
        std::array<char, 4096> part{};
        pollfd far{m_far, POLLIN, 0};
        while (::poll(&far, 1, 200) > 0) {
            const auto got = ::read(m_far, part.data(), part.size());
            if (got <= 0) break;
            all.append(part.data(), static_cast<std::size_t>(got));
        }
        return all;
    }
    void unplug() {
        if (m_far >= 0) ::close(std::exchange(m_far, -1));
    }

    std::string device;

private:
    int m_far = -1;
};

}  // namespace korvex
