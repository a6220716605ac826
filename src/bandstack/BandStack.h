#pragma once

#include <string_view>

#include "bandstack/BandStackCells.h"
#include "platform/MSFlexGrid.h"

namespace korvex {

/// The grid of the band stack registers: shows their cells (UTF-8), and is where a file or a reading goes.
struct BandStack {
    BandStack();

    MSFlexGrid grid{BandStackCells::allRows, BandStackCells::columns};

    /// Every cell as it stands there.
    BandStackCells cells() const;
    /// The whole grid anew, in its size.
    void show(const BandStackCells& cells);
    void show(int row, int column, std::string_view wire);
};

}  // namespace korvex
