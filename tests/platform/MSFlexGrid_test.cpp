#include "platform/MSFlexGrid.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace korvex {
namespace {

TEST(MSFlexGrid, KeepsWhatStaysWhenItIsReshaped) {
    MSFlexGrid grid(3, 3);
    grid.setTextMatrix(1, 2, "kept");
    grid.setTextMatrix(2, 1, "lost");
    grid.setColWidth(2, 3000);
    grid.setCurrent(2, 2);
    grid.setRows(2);
    grid.setCols(5);
    EXPECT_EQ(grid.TextMatrix(1, 2), "kept");
    EXPECT_EQ(grid.TextMatrix(1, 4), "");
    EXPECT_EQ(grid.ColWidth(2), 3000);
    EXPECT_EQ(grid.Row(), 1);
    grid.setRows(3);
    EXPECT_EQ(grid.TextMatrix(2, 1), "");

    grid.setTextMatrix(3, 0, "outside");
    grid.setCellBackColor(0, -1, 255);
    EXPECT_EQ(grid.TextMatrix(3, 0), "");
    EXPECT_EQ(grid.CellBackColor(0, -1), std::nullopt);
}

TEST(MSFlexGrid, TellsOnceWhatChangedWhileRedrawWasOff) {
    MSFlexGrid grid(100, 13);
    int cells = 0;
    int all = 0;
    const Connection one = grid.cellChanged.connect([&](int, int) { ++cells; });
    const Connection many = grid.allChanged.connect([&] { ++all; });
    grid.setTextMatrix(1, 1, "a");
    grid.setTextMatrix(1, 1, "a");
    EXPECT_EQ(cells, 1);

    grid.setRedraw(false);
    for (int row = 0; row < 100; ++row) {
        for (int col = 0; col < 13; ++col) grid.setTextMatrix(row, col, std::to_string(row * col));
    }
    grid.setRows(50);
    grid.setColWidth(1, 10);
    EXPECT_EQ(all, 0);
    grid.setRedraw(true);
    EXPECT_EQ(all, 1);
    EXPECT_EQ(cells, 1);
    grid.setRedraw(false);
    grid.setRedraw(true);
    EXPECT_EQ(all, 1);
}

TEST(MSFlexGrid, StartsBesideItsLabelsAndTellsBeforeItLeavesACell) {
    MSFlexGrid grid(0, 0);
    grid.setRows(4);
    grid.setCols(3);
    EXPECT_EQ(grid.Row(), 1);
    EXPECT_EQ(grid.Col(), 1);
    std::vector<int> rows;
    const Connection leaving = grid.leavingCell.connect([&] { rows.push_back(grid.Row()); });
    const Connection arrived = grid.currentChanged.connect([&] { rows.push_back(grid.Row()); });
    grid.setCurrent(99, 2);
    grid.setCurrent(3, 2);
    EXPECT_EQ(rows, (std::vector<int>{1, 3}));
}

TEST(MSFlexGrid, TheCurrentCellIsNeverInAHiddenRow) {
    MSFlexGrid grid(5, 3);
    grid.setCurrent(2, 2);
    int told = 0;
    const Connection all = grid.allChanged.connect([&] { ++told; });
    grid.setHiddenRows({true, true, true, false});
    EXPECT_EQ(told, 1);
    EXPECT_FALSE(grid.isRowHidden(0));  // the labels
    EXPECT_TRUE(grid.isRowHidden(2));
    EXPECT_FALSE(grid.isRowHidden(4));
    EXPECT_EQ(grid.Row(), 3);
    EXPECT_EQ(grid.Col(), 2);
    grid.setHiddenRows({false, false, true, true, true});
    EXPECT_EQ(grid.Row(), 1);
    grid.setHiddenRows({true, true, true, true, true});
    EXPECT_EQ(grid.Row(), 0);
}

}  // namespace
}  // namespace korvex
