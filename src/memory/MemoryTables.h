#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace korvex {

/// The radio's channels that the program saves and restores: 1..99.
inline constexpr int lastMemoryChannel = 99;

/// Channels that are read one after the other.
struct ChannelRange {
    int first = 1;
    int last = lastMemoryChannel;

    int count() const { return last - first + 1; }
    bool has(int channel) const { return channel >= first && channel <= last; }
};

/// The channels behind them: the nine pairs of limits that the radio scans between, P1L and P1U to P9L and P9U. Not
/// every radio tells them.
inline constexpr ChannelRange scanLimits{100, 117};

/// 103 texts by slot, 0..102. What lies outside is empty when read and ignored when written.
class MemorySlots {
public:
    static constexpr int lastSlot = 102;

    const std::string& operator[](int slot) const;
    void set(int slot, std::string text);

private:
    std::array<std::string, std::size_t{lastSlot} + 1> m_slots;
};

/// The read commands: "MR001;" in slot 1 to "MR100;" in slot 100.
MemorySlots makeMemoryReadCommands();

/// Memory strings as the last read or restore file left them, from slot 1 on. A slot number is no channel number: reads
/// leave out empty channels, and each string names its own channel.
using MemoryTable = MemorySlots;

}  // namespace korvex
