#include "radio/pty/TrafficLog.h"

#include <array>
#include <cerrno>
#include <system_error>

namespace korvex::pty {

namespace {

std::string printable(std::string_view text) {
    constexpr std::string_view hex = "0123456789ABCDEF";
    std::string out;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= ' ' && byte < 0x7F && c != '\\') {
            out += c;
        } else {
            out += {'\\', 'x', hex[byte >> 4], hex[byte & 0x0F]};
        }
    }
    return out;
}

}  // namespace

Failure TrafficLog::open(const std::string& path) {
    m_file.reset(std::fopen(path.c_str(), "we"));
    if (m_file) return {};
    return RuntimeError{errors::PathFileAccess, path + ": " + std::generic_category().message(errno)};
}

void TrafficLog::write(double nowMs, char direction, std::string_view text) {
    if (!m_file || text.empty()) return;
    std::fprintf(m_file.get(), "%9.3f %c %s\n", nowMs / 1000, direction, printable(text).c_str());
    std::fflush(m_file.get());
}

}  // namespace korvex::pty
