#include "memory/MemoryFile.h"

#include "base/Lines.h"

namespace korvex {

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
            return RuntimeError{errors::TypeMismatch, "The file has more than " +
                                                          std::to_string(MemoryTable::lastSlot) +
                                                          " lines and is no memory file. Nothing was sent."};
        }
        lines.emplace_back(*value);
    }
    return lines;
}

}  // namespace korvex
