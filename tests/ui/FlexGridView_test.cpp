#include "platform/qtwidgets/FlexGridView.h"

#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace korvex {
namespace {

class FlexGridViewTest : public testing::Test {
protected:
    FlexGridViewTest() : cells(100, 13), view(cells) {
        for (int row = 0; row < 100; ++row) {
            for (int col = 0; col < 13; ++col) cells.setTextMatrix(row, col, name(row, col));
        }
        for (int col = 0; col < 13; ++col) cells.setColWidth(col, 1500);
        view.resize(600, 300);
        view.show();
        view.setFocus();
        QApplication::processEvents();
    }
    static std::string name(int row, int col) { return std::to_string(row) + "/" + std::to_string(col); }

    void press(int row, int col, Qt::MouseButton button) {
        const QPoint at = view.cellGeometry(row, col).center();
        QWidget* target = view.childAt(at);
        const QPointF local = target->mapFrom(&view, at);
        QMouseEvent down(QEvent::MouseButtonPress, local, target->mapToGlobal(local), button, button, Qt::NoModifier);
        QApplication::sendEvent(target, &down);
        QMouseEvent up(QEvent::MouseButtonRelease, local, target->mapToGlobal(local), button, {}, Qt::NoModifier);
        QApplication::sendEvent(target, &up);
    }
    void key(int code, const QString& text = {}, Qt::KeyboardModifiers modifiers = {}) {
        QKeyEvent event(QEvent::KeyPress, code, modifiers, text);
        QApplication::sendEvent(&view, &event);
    }

    MSFlexGrid cells;
    FlexGridView view;
};

TEST_F(FlexGridViewTest, CurrentCellIsTheGridsBothWays) {
    key(Qt::Key_Down);
    key(Qt::Key_Right);
    EXPECT_EQ(cells.Row(), 2);
    EXPECT_EQ(cells.Col(), 2);
    cells.setCurrent(90, 12);
    EXPECT_TRUE(view.isRowVisible(90));
    EXPECT_TRUE(view.isColVisible(12));
    EXPECT_FALSE(view.isRowVisible(1));
    EXPECT_FALSE(view.isColVisible(1));
    EXPECT_TRUE(view.cellGeometry(1, 1).isEmpty());

    std::vector<std::string> pressed;
    QObject::connect(&view, &FlexGridView::cellPressed, &view, [&](int row, int col, Qt::MouseButton button) {
        pressed.push_back(name(row, col) + (button == Qt::RightButton ? " right" : ""));
    });
    press(89, 11, Qt::LeftButton);
    EXPECT_EQ(cells.Row(), 89);
    press(88, 10, Qt::RightButton);  // the host decides what that means
    EXPECT_EQ(cells.Row(), 89);
    press(0, 10, Qt::RightButton);
    press(87, 0, Qt::LeftButton);
    EXPECT_EQ(cells.Row(), 89);
    cells.setCurrent(0, 11);  // a title: the view stays where it is
    press(89, 11, Qt::LeftButton);
    EXPECT_EQ(cells.Row(), 89);
    pressed.pop_back();
    EXPECT_EQ(pressed, (std::vector<std::string>{"89/11", "88/10 right", "0/10 right", "87/0"}));
}

TEST_F(FlexGridViewTest, TellsKeysAndOnlyThenMoves) {
    std::vector<std::string> heard;
    QObject::connect(&view, &FlexGridView::keyDown, &view, [&](int code) {
        heard.push_back("down " + std::to_string(code));
        if (code == Qt::Key_S) view.swallowKey();
    });
    QObject::connect(&view, &FlexGridView::keyTyped, &view,
                     [&](const QString& text) { heard.push_back(text.toStdString()); });
    view.setTakesTyping(true);
    key(Qt::Key_R, QStringLiteral("r"));
    key(Qt::Key_S, QStringLiteral("s"));
    key(Qt::Key_F, QStringLiteral("f"), Qt::AltModifier);
    key(Qt::Key_Delete, QStringLiteral("\x7F"));
    key(Qt::Key_Tab, QStringLiteral("\t"));  // it leaves the grid, if there is anything to go to
    EXPECT_EQ(heard,
              (std::vector<std::string>{"down 82", "r", "down 83", "down 70", "down " + std::to_string(Qt::Key_Delete),
                                        "down " + std::to_string(Qt::Key_Tab)}));
    EXPECT_EQ(cells.Row(), 1);  // no search for a cell that begins with what was typed
}

TEST_F(FlexGridViewTest, KeepsTheUsersWidthsAndTakesTheGrids) {
    view.setColumnWidth(2, 240);
    cells.setTextMatrix(5, 5, "new");
    cells.setColWidth(1, 10);
    EXPECT_EQ(view.columnWidth(2), 240);
    EXPECT_EQ(view.columnWidth(0), 1);
    cells.setColWidth(3, 3000);
    EXPECT_EQ(view.columnWidth(2), 200);

    cells.setFixed(1, 0);  // a grid without row labels
    cells.setCurrent(4, 0);
    EXPECT_EQ(view.model()->columnCount(), 13);
    EXPECT_EQ(view.columnWidth(0), 100);
    EXPECT_EQ(view.columnWidth(3), 200);
    EXPECT_EQ(view.currentIndex(), view.model()->index(3, 0));
}

TEST_F(FlexGridViewTest, RedrawsOnceForAWholeFill) {
    int resets = 0;
    int changes = 0;
    QObject::connect(view.model(), &QAbstractItemModel::modelReset, &view, [&] { ++resets; });
    QObject::connect(view.model(), &QAbstractItemModel::dataChanged, &view, [&] { ++changes; });
    view.verticalScrollBar()->setValue(40);
    cells.setRedraw(false);
    for (int row = 1; row < 100; ++row) cells.setTextMatrix(row, 3, "filled");
    cells.setRedraw(true);
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(resets, 0);
    EXPECT_EQ(view.verticalScrollBar()->value(), 40);

    cells.setRedraw(false);
    cells.setRows(3);
    view.grab();  // drawn while the grid is smaller than the view knows
    cells.setRedraw(true);
    EXPECT_EQ(view.model()->rowCount(), 2);
    EXPECT_EQ(resets, 1);
}

TEST_F(FlexGridViewTest, CanBeReadAloud) {
    const auto* table = QAccessible::queryAccessibleInterface(&view)->tableInterface();
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->rowCount(), 99);
    EXPECT_EQ(table->columnCount(), 12);
    EXPECT_EQ(table->cellAt(4, 1)->text(QAccessible::Name).toStdString(), name(5, 2));
    EXPECT_EQ(table->columnDescription(1).toStdString(), name(0, 2));
    EXPECT_EQ(table->rowDescription(4).toStdString(), name(5, 0));
    cells.setMark(5, 2, {"*", "not saved"});
    EXPECT_EQ(table->cellAt(4, 1)->text(QAccessible::Name).toStdString(), name(5, 2));
    EXPECT_EQ(table->cellAt(4, 1)->text(QAccessible::Description).toStdString(), "not saved");
    cells.setTextMatrix(5, 2, "");
    EXPECT_EQ(table->cellAt(4, 1)->text(QAccessible::Name).toStdString(), "");
    EXPECT_EQ(table->cellAt(4, 1)->text(QAccessible::Description).toStdString(),
              name(0, 2) + ", " + name(5, 0) + ": empty\nnot saved");
}

TEST_F(FlexGridViewTest, HidesRowsAndLeavesTheOthersInTheirPlaces) {
    std::vector<bool> hidden(100, true);
    hidden[40] = hidden[41] = false;
    cells.setHiddenRows(hidden);
    EXPECT_EQ(cells.Row(), 40);
    EXPECT_TRUE(view.isRowVisible(40));
    EXPECT_FALSE(view.isRowVisible(39));
    EXPECT_LE(view.cellGeometry(41, 1).top() - view.cellGeometry(40, 1).bottom(), 2);  // a line between them
    key(Qt::Key_Down);
    EXPECT_EQ(cells.Row(), 41);
    key(Qt::Key_Down);
    EXPECT_EQ(cells.Row(), 41);
    cells.setHiddenRows({});
    EXPECT_TRUE(view.isRowVisible(41));
    EXPECT_TRUE(view.isRowVisible(42));
}

TEST_F(FlexGridViewTest, DrawsMarksBehindTheText) {
    const QRect cell = view.cellGeometry(2, 2);
    const QImage before = view.grab(cell).toImage();
    cells.setMark(2, 2, {"\u2260", "differs"});
    const QImage after = view.grab(cell).toImage();
    const int half = cell.width() / 2;
    EXPECT_EQ(before.copy(0, 0, half, cell.height()), after.copy(0, 0, half, cell.height()));
    EXPECT_NE(before.copy(half, 0, half, cell.height()), after.copy(half, 0, half, cell.height()));
}

TEST_F(FlexGridViewTest, DrawsBackColoursWithReadableText) {
    cells.setCellBackColor(2, 2, 65535);
    cells.setCellBackColor(3, 2, 0x800000);
    const QImage picture = view.grab().toImage();
    EXPECT_EQ(picture.pixelColor(view.cellGeometry(2, 2).topRight() + QPoint(-3, 3)), QColor(255, 255, 0));
    const QModelIndex dark = view.model()->index(2, 1);
    EXPECT_EQ(dark.data(Qt::BackgroundRole).value<QBrush>().color(), QColor(0, 0, 0x80));
    EXPECT_EQ(dark.data(Qt::ForegroundRole).value<QBrush>().color(), QColor(Qt::white));
}

}  // namespace
}  // namespace korvex
