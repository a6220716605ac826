#pragma once

#include <array>
#include <string>

#include "memory/MemoryRecord.h"

namespace korvex {

/// A row of the memory list: what its cells show (UTF-8), by field, and whether they are marked yellow.
struct MemoryRow {
    using Cells = std::array<std::string, memoryFieldCount>;

    Cells cells;
    bool marked = false;

    std::string& operator[](MemoryField field) { return cells[static_cast<std::size_t>(field)]; }
    const std::string& operator[](MemoryField field) const { return cells[static_cast<std::size_t>(field)]; }
    bool filled() const { return !(*this)[MemoryField::Frequency].empty(); }
    bool operator==(const MemoryRow&) const = default;
};

}  // namespace korvex
