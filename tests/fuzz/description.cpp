#include "cli/Description.h"

#include <sstream>

#include "fuzz/Fuzz.h"
#include "fuzz/Judge.h"
#include "menu/DescriptionTable.h"
#include "platform/ProgramFolder.h"
#include "trouble/TroubleBench.h"

namespace korvex {

namespace {

constexpr int firstSettings = 7;
constexpr int keyR = 82;
constexpr int keyS = 83;

/// The Menu Manager with this table: every settings column goes to the radio, single cells by key.
void useInManager(TroubleBench& bench) {
    auto& manager = bench.program.menuManager;
    bench.program.windows.menuManager.show();
    manager.Form_Load();
    bench.clock.advance(50);
    for (int row = 1; row < manager.FlexGrid1.Rows(); row += 20) {
        manager.FlexGrid1.setCurrent(row, firstSettings + row % 4);
        manager.FlexGrid1_KeyDown(row % 3 == 0 ? keyR : keyS);
        bench.clock.advance(600);
    }
    manager.FlexGrid1_RightClick(firstSettings);
    manager.mnuRestore_Click();
    bench.clock.advance(20'000);
    manager.Flexgrid_toGrid_Click();
    bench.closePorts();
    EXPECT_EQ(bench.whatIsWrong(), "");
    EXPECT_EQ(fuzz::keysTransmitterWith(bench.ports.written), "");
}

}  // namespace

/// A table of menu descriptions: refused with its line, or the same again after an export, and harmless in the Menu
/// Manager.
FUZZ_TARGET(description) {
    const auto table = parseDescription(input);
    if (!table) {
        EXPECT_FALSE(table.error().text.empty());
        return;
    }
    const std::string text = descriptionText(*table);
    const auto again = parseDescription(text);
    ASSERT_TRUE(again) << again.error().text;
    EXPECT_EQ(again->records, table->records);
    TroubleBench bench;
    std::ostringstream err;
    const std::string database = bench.folder.path() + "/" + std::string(descriptionDatabaseName);
    fakes::writeFile(bench.source, std::string(input));
    EXPECT_EQ(cli::importDescription(bench.database, database, bench.source, err), cli::ExitCode::Done) << err.str();
    EXPECT_EQ(cli::exportDescription(bench.database, database, bench.target, err), cli::ExitCode::Done) << err.str();
    EXPECT_EQ(fakes::fileContent(bench.target), text);
    bench.openPort();
    useInManager(bench);
}

}  // namespace korvex
