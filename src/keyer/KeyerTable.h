#pragma once

#include <string>

#include "keyer/KeyerFile.h"
#include "keyer/KeyerTexts.h"
#include "platform/MSFlexGrid.h"

namespace korvex {

/// The grid of the five CW message memories.
///
///     Mem.  | Keyer Text | Char. Count
///     KM1;  | CQ CQ DE   | 8
struct KeyerTable {
    static constexpr int rows = keyerMemories + 1;
    static constexpr int columns = 3;
    static constexpr int labelColumn = 0;
    static constexpr int textColumn = 1;
    static constexpr int countColumn = 2;

    KeyerTable();

    MSFlexGrid MSFlexGrid_k1{rows, columns};

    /// The texts for sending; ask first whether they can be sent.
    KeyerTexts texts() const;
    /// All cells for a file; ask first whether they can be stored.
    KeyerFileRows fileRows() const;
    /// A text that the radio answered, with its length beside it.
    void setText(int memory, const WireText& text);
    void clearTexts();
    /// Texts, counts and titles as a file has them; rows that it lacks become empty.
    void fill(const KeyerFileRows& rows);

    /// Why a memory's text cannot be sent as one command; empty when it can.
    std::string whyNotSendable(int row) const;
    /// Why a memory's text cannot be kept in a file; empty when it can.
    std::string whyNotStorable(int row) const;
};

}  // namespace korvex
