#include "base/CodePage.h"
#include "fuzz/Fuzz.h"

namespace korvex {

/// The bridge between the text of the line and what a person sees: no byte is lost on the way there and back, and what
/// cannot be expressed is told.
FUZZ_TARGET(text) {
    const std::string text(input);
    const std::string utf8 = utf8FromWire(input);
    EXPECT_TRUE(isUtf8(utf8));
    EXPECT_EQ(utf8Length(utf8), input.size());
    EXPECT_EQ(wireFromUtf8(utf8), text);
    const auto wire = wireFromUtf8(input);
    EXPECT_EQ(wire.has_value(), !firstInexpressible(input).has_value());
    if (wire) {
        EXPECT_EQ(utf8FromWire(*wire), text);
    }
}

}  // namespace korvex
