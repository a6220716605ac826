#include "bandstack/BandStackFile.h"
#include "fuzz/DataFile.h"
#include "fuzz/Fuzz.h"

namespace korvex {

/// A file of the band stack: the grid that it fills is filled alike by the file that is saved from it.
FUZZ_TARGET(band_stack_file) {
    fuzz::checkItems("bandstack", input);
    BandStackFields parsed;
    if (parseBandStackText(input, parsed)) return;
    BandStack stack;
    fillGrid(stack, parsed);
    ASSERT_EQ(stack.FlexGrid1.Cols(), BandStack::columns);
    // A cell that lay across a line end, or a first cell that says that the queries are missing, is no cell of ours.
    bool plain = stack.wireText(0, 0).empty() && stack.FlexGrid1.Rows() == BandStack::rows;
    for (const auto field : parsed.fields) plain = plain && (field == "\r\n" || fuzz::isPlain(field));
    const std::string text = bandStackFileText(stack);
    BandStackFields again;
    ASSERT_EQ(parseBandStackText(text, again).has_value(), false);
    if (!plain || text.find("|\r\n\r\n|") != std::string::npos) return;
    BandStack other;
    fillGrid(other, again);
    EXPECT_EQ(bandStackFileText(other), text);
}

}  // namespace korvex
