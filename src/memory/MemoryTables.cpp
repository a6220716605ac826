#include "memory/MemoryTables.h"

#include <utility>

#include "memory/MemoryRecord.h"

namespace korvex {

namespace {
bool exists(int slot) {
    return slot >= 0 && slot <= MemorySlots::lastSlot;
}
}  // namespace

const std::string& MemorySlots::operator[](int slot) const {
    static const std::string nothing;
    return exists(slot) ? m_slots[static_cast<std::size_t>(slot)] : nothing;
}

void MemorySlots::set(int slot, std::string text) {
    if (exists(slot)) m_slots[static_cast<std::size_t>(slot)] = std::move(text);
}

MemorySlots makeMemoryReadCommands() {
    constexpr int lastCommand = 100;
    MemorySlots commands;
    for (int channel = 1; channel <= lastCommand; ++channel) commands.set(channel, memoryReadCommand(channel));
    return commands;
}

}  // namespace korvex
