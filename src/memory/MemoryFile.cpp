#include "memory/MemoryFile.h"

#include "base/Lines.h"
#include "memory/FileLine.h"
#include "memory/MemoryRecord.h"

namespace korvex {

namespace {

RuntimeError refused(const std::string& why) {
    return {errors::TypeMismatch, why};
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
        if (!isUndamaged(*value)) return refused(lineInWords(content, *value) + " is no memory as the radio tells it");
        lines.emplace_back(*value);
    }
    return lines;
}

}  // namespace korvex
