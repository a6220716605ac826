#pragma once

#include <ostream>
#include <streambuf>
#include <string>
#include <string_view>

namespace korvex {

/// UTF-8 that came from a radio, a file or a device's name, for a terminal: line ends as they are here, every other
/// control character but tabs a picture of itself, and what is no UTF-8 a replacement character, so that nothing in it
/// is obeyed.
std::string printable(std::string_view utf8);
/// The same on one line: line ends are pictures, too.
std::string printableLine(std::string_view utf8);

/// Lets only printable text through to another stream, line by line: what is written without a line end goes with the
/// next flush. Fails as the other stream fails.
class PrintableStream : public std::ostream {
public:
    explicit PrintableStream(std::ostream& target) : std::ostream(nullptr), m_buffer(target) { rdbuf(&m_buffer); }
    ~PrintableStream() override { flush(); }
    PrintableStream(const PrintableStream&) = delete;
    PrintableStream& operator=(const PrintableStream&) = delete;

private:
    class Buffer : public std::streambuf {
    public:
        explicit Buffer(std::ostream& target) : m_target(target) {}

    protected:
        int_type overflow(int_type c) override;
        int sync() override;

    private:
        std::ostream& m_target;
        std::string m_line;
    };

    Buffer m_buffer;
};

}  // namespace korvex
