#include <gtest/gtest.h>

#include "fuzz/Fuzz.h"
#include "menu/DescriptionTable.h"

namespace korvex {

/// A table of menu descriptions: refused with a reason, or the same again after an export.
FUZZ_TARGET(description) {
    const auto table = parseDescription(input);
    if (!table) {
        EXPECT_FALSE(table.error().text.empty());
        return;
    }
    const auto again = parseDescription(descriptionText(*table));
    ASSERT_TRUE(again) << again.error().text;
    EXPECT_EQ(again->records, table->records);
}

}  // namespace korvex
