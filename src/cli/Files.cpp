#include "cli/Files.h"

#include <array>

#include "platform/TextFile.h"

namespace korvex::cli {

namespace {

constexpr std::string_view standardStream = "-";

Result<std::string> readAll(std::istream& input) {
    std::string content;
    std::array<char, 4096> buffer{};
    while (input.read(buffer.data(), buffer.size()) || input.gcount() > 0) {
        content.append(buffer.data(), static_cast<std::size_t>(input.gcount()));
        if (content.size() > textfile::largestFile) {
            return RuntimeError{errors::PathFileAccess, "the standard input is too large"};
        }
    }
    return content;
}

}  // namespace

Result<std::string> Files::read(const std::string& name) const {
    return name == standardStream ? readAll(m_input) : textfile::read(name);
}

Failure Files::write(const std::string& name, std::string_view content) const {
    if (name != standardStream) return textfile::write(name, content);
    if (m_output.write(content.data(), static_cast<std::streamsize>(content.size())).flush()) return {};
    return RuntimeError{errors::DeviceIo, "the standard output could not be written"};
}

Failure Files::whyNotWritable(const std::string& name) {
    return name == standardStream ? Failure() : textfile::whyNotWritable(name);
}

}  // namespace korvex::cli
