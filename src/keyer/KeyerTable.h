#pragma once

#include <string>
#include <string_view>

#include "platform/MSFlexGrid.h"

namespace korvex {

/// The five CW message memories: the grid that shows them and the row that is being read or written.
///
///     Mem.  | Keyer Text | Char. Count
///     KM1;  | CQ CQ DE   | 8
struct KeyerTable {
    static constexpr int memories = 5;
    static constexpr int rows = memories + 1;
    static constexpr int columns = 3;
    static constexpr int labelColumn = 0;
    static constexpr int textColumn = 1;
    static constexpr int countColumn = 2;
    /// A memory of the radio ends here. A longer text is sent all the same; the radio refuses it.
    static constexpr std::size_t longestText = 50;

    KeyerTable();

    MSFlexGrid MSFlexGrid_k1{rows, columns};
    int keyerRow = 0;  ///< 0 before a sequence, 1 to 5 while it runs, 6 at its end

    /// "KM1;" to "KM5;": the label of a row and the command that reads its memory.
    static std::string readCommand(int row);

    /// A cell as wire text, for sending and for files; ask first whether there is one.
    std::string wireText(int row, int column) const;
    /// A text that the radio answered, with its length beside it.
    void setText(int row, std::string_view wire);
    void clearTexts();

    /// Why a memory's text cannot be sent as one command; empty when it can.
    std::string whyNotSendable(int row) const;
    /// Why a memory's text cannot be kept in a file; empty when it can.
    std::string whyNotStorable(int row) const;
};

}  // namespace korvex
