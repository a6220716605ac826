#include "platform/PortScan.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <tuple>

#include "base/NumberText.h"

namespace korvex {

namespace {

namespace fs = std::filesystem;

std::string firstLine(const fs::path& path) {
    std::ifstream file(path);
    std::string line;
    std::getline(file, line);
    return line;
}

std::vector<fs::path> entriesOf(const fs::path& folder) {
    std::error_code error;
    std::vector<fs::path> entries;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        entries.push_back(entry->path());
    }
    std::sort(entries.begin(), entries.end());
    return entries;
}

/// Consoles and the like have no device; an unused name of the on-board driver has the chip type 0.
bool isSerialPort(const fs::path& tty) {
    std::error_code error;
    if (tty.filename().string().starts_with("rfcomm")) return true;
    return fs::exists(tty / "device", error) && firstLine(tty / "type") != "0";
}

bool isOnBoard(const std::string& name) {
    return name.starts_with("ttyS") || name.starts_with("ttyAMA");
}

/// On-board ports first; ttyUSB2 before ttyUSB10.
auto orderOf(const fs::path& tty) {
    const std::string name = tty.filename().string();
    const std::size_t digits = name.find_last_not_of("0123456789") + 1;
    return std::tuple(!isOnBoard(name), name.substr(0, digits), parseWhole(name.substr(digits)).value_or(-1));
}

std::string describe(const fs::path& tty) {
    if (isOnBoard(tty.filename().string())) return "on-board serial port";
    std::error_code error;
    for (fs::path place = fs::canonical(tty / "device", error); !error && place.has_relative_path();
         place = place.parent_path()) {
        const std::string product = firstLine(place / "product");
        if (product.empty()) continue;
        const std::string maker = firstLine(place / "manufacturer");
        const std::string serial = firstLine(place / "serial");
        std::string text = maker.empty() ? product : maker + " " + product;
        if (!serial.empty()) text.append(", serial number ").append(serial);
        return text;
    }
    return {};
}

/// Adapters with an FTDI chip keep what comes until they are full or so many ms are over.
std::optional<int> latencyOf(const fs::path& tty) {
    return parseWhole(firstLine(tty / "device/latency_timer"));
}

/// by-id goes with the adapter wherever it is plugged in, by-path with the socket.
std::vector<std::string> namesOf(const fs::path& device, const fs::path& root) {
    std::vector<std::string> names;
    for (const char* folder : {"dev/serial/by-id", "dev/serial/by-path"}) {
        for (const auto& link : entriesOf(root / folder)) {
            std::error_code error;
            if (fs::canonical(link, error) == device && !error) names.push_back(link.string());
        }
    }
    names.push_back(device.string());
    return names;
}

}  // namespace

std::vector<FoundPort> scanPorts(const std::string& root) {
    auto ttys = entriesOf(fs::path(root) / "sys/class/tty");
    std::sort(ttys.begin(), ttys.end(), [](const auto& a, const auto& b) { return orderOf(a) < orderOf(b); });
    std::vector<FoundPort> found;
    for (const auto& tty : ttys) {
        const fs::path device = fs::path(root) / "dev" / tty.filename();
        std::error_code error;
        if (!isSerialPort(tty) || !fs::exists(device, error)) continue;
        found.push_back({device.string(), namesOf(device, root), describe(tty), latencyOf(tty)});
    }
    return found;
}

}  // namespace korvex
