#include "bandstack/BandStackFile.h"
#include "base/Lines.h"
#include "fuzz/Fuzz.h"
#include "fuzz/Judge.h"

namespace korvex {

/// A file of the band stack: what is sent for its cells keys no transmitter and toggles no antenna, and the cells are
/// given alike by the file that is saved from them.
FUZZ_TARGET(band_stack_file) {
    const auto cells = parseBandStackText(input);
    if (!cells) {
        EXPECT_FALSE(cells.error().text.empty());
        return;
    }
    std::string sent;
    for (int column = 1; column < BandStackCells::columns; ++column) {
        for (int row = 0; row <= BandStackCells::lastQueried; ++row) {
            sent.append(bandStackCommand(cells->at(row, column))).append(crLf);
        }
    }
    EXPECT_EQ(fuzz::keysTransmitterWith(sent), "");
    EXPECT_EQ(sent.find("AN05"), std::string::npos);
    // Without a count in front, rows that are not there cannot be told from empty ones.
    if (cells->rows() != BandStackCells::allRows) return;
    const auto again = parseBandStackText(bandStackFileText(*cells));
    ASSERT_TRUE(again) << again.error().text;
    EXPECT_EQ(*again, *cells);
}

}  // namespace korvex
