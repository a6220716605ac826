#pragma once

#include <string_view>

#include "cat/Exchange.h"

namespace korvex {

/// An adapter's echo of the question ("MR001;") is shorter than any answer.
inline constexpr std::size_t shortestMemoryAnswer = 7;

/// Asks for a channel.
Exchange memoryReading(int channel);
/// Writes a channel ("MW007...;") and asks for it. The digit that tells where the radio has it from may be another.
Exchange memoryWriting(const std::string& command);

/// Whether two answers tell of the same channel; that digit may be another.
bool isSameMemory(std::string_view one, std::string_view other);

}  // namespace korvex
