#include "memory/MemoryFile.h"

#include "base/CodePage.h"
#include "base/Lines.h"
#include "cat/TransmitGuard.h"
#include "memory/MemoryRecord.h"

namespace korvex {

namespace {

RuntimeError refused(const std::string& why) {
    return {errors::TypeMismatch, why + ", nothing was sent"};
}

}  // namespace

std::string memoryFileText(const MemoryTable& table, int lastSlot) {
    std::string text;
    for (int slot = 1; slot <= lastSlot; ++slot) text.append(table[slot]).append(crLf);
    return text;
}

Result<std::vector<std::string>> parseMemoryFile(std::string_view content) {
    std::vector<std::string> lines;
    FieldReader values(content);
    while (const auto value = values.next()) {
        if (value->empty()) continue;
        if (lines.size() == MemoryTable::lastSlot) {
            return refused("The file has more than " + std::to_string(MemoryTable::lastSlot) + " lines");
        }
        if (keysTransmitter(memoryWriteCommand(*value))) {
            return refused("Line " + std::to_string(lines.size() + 1) + " (" + utf8FromWire(value->substr(0, 20)) +
                           ") would key the transmitter");
        }
        lines.emplace_back(*value);
    }
    return lines;
}

}  // namespace korvex
