#include "fuzz/DataFile.h"

#include <gtest/gtest.h>
#include <sstream>

#include "app/DataItems.h"
#include "base/Lines.h"
#include "cli/Comparison.h"
#include "fuzz/Judge.h"

namespace korvex::fuzz {

void checkItems(const std::string& kind, std::string_view content) {
    const auto items = dataItems(kind, content);
    if (!items) {
        EXPECT_FALSE(items.error().text.empty());
        return;
    }
    EXPECT_TRUE(cli::differences(*items, *items, cli::Remarks::Count).empty());
    if (kind == "bandstack") {
        EXPECT_TRUE(cli::differences(*items, cli::turnedLike(*items, *items), cli::Remarks::Count).empty());
    }
    std::ostringstream out;
    cli::print(out, cli::differences(*items, {}, cli::Remarks::Count), kind, {});
    std::string sent;
    for (const auto& item : *items) sent.append(item.command).append(crLf);
    EXPECT_EQ(keysTransmitterWith(sent), "");
}

bool isPlain(std::string_view value) {
    return value.find_first_of("\",\r\n") == std::string_view::npos && !value.starts_with(' ') && !value.ends_with(' ');
}

}  // namespace korvex::fuzz
