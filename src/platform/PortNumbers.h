#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace korvex {

/// A serial device that is plugged in now.
struct FoundPort {
    std::string device;                 ///< "/dev/ttyUSB0"
    std::vector<std::string> names;     ///< every name that leads to it, the one that survives replugging first
    std::string description;            ///< adapter and serial number, UTF-8; may be empty
    std::optional<int> latencyMs = {};  ///< the adapter's latency timer, where it has one

    bool operator==(const FoundPort&) const = default;
};

/// Which device stands behind which of the port numbers 1..20. What the command line gave comes first, then what the
/// user settled on before, then what is found, on the free numbers in the order in which it is found. A number that the
/// user settled on waits for its device: no other one ever slips in. A found device keeps its number as long as the
/// program runs, whatever is plugged in beside it.
class PortNumbers {
public:
    static constexpr int first = 1;
    static constexpr int last = 20;

    /// From the command line; the number means this device and nothing else.
    void give(int number, const std::string& name);
    /// From earlier runs; `name` is one of a device's names. A number that was given stays given.
    void remember(int number, const std::string& name);
    /// Used up by somebody else.
    void reserve(int number);

    /// What is plugged in now.
    void setFound(std::vector<FoundPort> found);

    /// The name to open for a number, also of a device that is not plugged in; empty when the number has none.
    std::string deviceOf(int number) const;
    /// The found device behind a number; null when it has none now.
    const FoundPort* foundAt(int number) const;
    /// The name by which the number is to be remembered; empty when it cannot be: given, reserved, or without a device.
    std::string nameToRemember(int number) const;

private:
    enum class Origin { Given, Remembered, Found, Reserved };
    struct Entry {
        Origin origin = Origin::Found;
        std::string name;
    };

    const FoundPort* foundAs(const std::string& name) const;
    bool isTaken(const FoundPort& port) const;

    std::map<int, Entry> m_entries;
    std::vector<FoundPort> m_found;
};

}  // namespace korvex
