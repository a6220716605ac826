// The yardstick for transfers: a loop that sends each line of a file and waits for one answer, and nothing else.
//
//   bench_bare_loop DEVICE SPEED FILE

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <map>
#include <string>
#include <termios.h>
#include <unistd.h>

namespace {

int openLine(const char* device, int speed) {
    const std::map<int, speed_t> speeds = {{4800, B4800}, {9600, B9600}, {19200, B19200}, {38400, B38400}};
    const int line = ::open(device, O_RDWR | O_NOCTTY);
    if (line < 0) return line;
    termios raw{};
    ::tcgetattr(line, &raw);
    ::cfmakeraw(&raw);
    raw.c_cflag |= CSTOPB;
    ::cfsetspeed(&raw, speeds.at(speed));
    ::tcsetattr(line, TCSANOW, &raw);
    return line;
}

bool answered(int line) {
    char c = 0;
    while (c != ';') {
        if (::read(line, &c, 1) != 1) return false;
    }
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 4) return 2;
    const int line = openLine(argv[1], std::atoi(argv[2]));
    std::ifstream queries(argv[3]);
    for (std::string query; line >= 0 && std::getline(queries, query);) {
        const auto length = static_cast<ssize_t>(query.size());
        if (::write(line, query.data(), query.size()) != length || !answered(line)) return 1;
    }
    return line < 0 ? 1 : 0;
}
