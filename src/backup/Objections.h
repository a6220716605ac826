#pragma once

#include <string>

#include "bandstack/BandStackCells.h"
#include "keyer/KeyerReader.h"
#include "memory/MemoryReader.h"
#include "menu/MenuCommandTable.h"

namespace korvex {

/// What speaks against keeping what was read from the radio, for those who cannot ask anybody: empty when it is whole.
namespace objections {

std::string toMenu(const MenuCommandTable& table);
/// A firmware without one of the items refuses it; the others are in place all the same.
std::string toMenuWithRefusals(const MenuCommandTable& table);
/// Noise on the line makes answers that no radio gives.
std::string toMemories(const MemoryReader& reader);
/// What the radio refuses to tell is no objection, such as a band that it does not have, unless it refuses all.
std::string toBandStack(const BandStackCells& cells);
std::string toKeyerTexts(const KeyerReader& reader);
std::string toKeyerTextsWithRefusals(const KeyerReader& reader);

}  // namespace objections

}  // namespace korvex
