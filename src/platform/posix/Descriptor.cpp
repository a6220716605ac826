#include "platform/posix/Descriptor.h"

#include <cerrno>
#include <unistd.h>

namespace korvex {

Descriptor::~Descriptor() {
    if (isOpen()) ::close(m_fd);
}

int Descriptor::writeAll(std::string_view content) const {
    while (!content.empty()) {
        const auto written = ::write(m_fd, content.data(), content.size());
        if (written < 0 && errno != EINTR) return errno;
        if (written > 0) content.remove_prefix(static_cast<std::size_t>(written));
    }
    return 0;
}

int Descriptor::close() {
    return ::close(std::exchange(m_fd, -1)) == 0 ? 0 : errno;
}

}  // namespace korvex
