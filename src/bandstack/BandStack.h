#pragma once

#include <string>
#include <string_view>

#include "base/Property.h"
#include "platform/MSFlexGrid.h"

namespace korvex {

/// The table of band stack registers and the cursor that its two sequences share.
///
/// Row 0 holds each register's band-select command: three columns a band, eleven bands. Column 0 holds the query of
/// each row. Between them stand the radio's answers as they came, with their ";". Rows 1 to 22 are read; row 23 takes
/// the antenna that the radio is on while a register is written, row 24 what was sent to set it right.
struct BandStack {
    static constexpr int rows = 25;
    static constexpr int columns = 34;
    static constexpr int lastQueried = 22;
    static constexpr int antennaAnswer = 23;
    static constexpr int antennaCommand = 24;
    static constexpr int pastLastColumn = 34;

    MSFlexGrid FlexGrid1{rows, columns};
    int BandStackRow = 0;
    int BandStackColumn = 0;
    Property<std::string> Text3;  ///< the text that is being written to the radio, UTF-8

    /// Labels row 0 and column 0, in a grid of the full size again if a file had given it another.
    void initBandStackGrid();
    /// Column 0 of a file from before that column was stored.
    void setEarlierQueryLabels();

    /// A cell as wire text, for sending and for files.
    std::string wireText(int row, int column) const;
    void setWireText(int row, int column, std::string_view wire);
    /// Whether an answer, or a refusal, to the query of its row stands in a cell.
    bool answersItsQuery(int row, int column) const;
    /// The cell under the cursor.
    std::string current() const { return wireText(BandStackRow, BandStackColumn); }
};

}  // namespace korvex
