#pragma once

#include <cerrno>
#include <string_view>
#include <unistd.h>
#include <utility>

namespace korvex {

/// An open file that is closed at the end of the scope.
class Descriptor {
public:
    explicit Descriptor(int fd = -1) : m_fd(fd) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(m_fd, other.m_fd);
        return *this;
    }
    ~Descriptor() {
        if (m_fd >= 0) ::close(m_fd);
    }

    int get() const { return m_fd; }
    bool isOpen() const { return m_fd >= 0; }

    /// Each gives the error number, 0 when all went well.
    int writeAll(std::string_view content) const {
        while (!content.empty()) {
            const auto written = ::write(m_fd, content.data(), content.size());
            if (written < 0 && errno != EINTR) return errno;
            if (written > 0) content.remove_prefix(static_cast<std::size_t>(written));
        }
        return 0;
    }
    int close() { return ::close(std::exchange(m_fd, -1)) == 0 ? 0 : errno; }

private:
    int m_fd;
};

}  // namespace korvex
