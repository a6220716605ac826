#pragma once

#include <string_view>
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
    ~Descriptor();

    int get() const { return m_fd; }
    bool isOpen() const { return m_fd >= 0; }

    /// Each gives the error number, 0 when all went well.
    int writeAll(std::string_view content) const;
    int close();

private:
    int m_fd;
};

}  // namespace korvex
