#include "gridedit/ui/QtEditableGrid.h"

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMainWindow>
#include <QRegularExpression>
#include <QScrollBar>
#include <QToolTip>
#include <gtest/gtest.h>
#include <memory>
#include <string>

#include "gridedit/clsFlexGridEdit.h"
#include "gridedit/clsFlexGridEdit2.h"
#include "platform/qtwidgets/FlexGridView.h"

namespace korvex {
namespace {

template <class Editor>
class EditorWindow : public testing::Test {
protected:
    EditorWindow() : cells(50, 8), view(new FlexGridView(cells)) {
        for (int row = 1; row < 50; ++row) cells.setTextMatrix(row, 1, "TEXT " + std::to_string(row));
        window.setCentralWidget(view);
        window.resize(500, 300);
        window.show();
        view->setFocus();
        editable = std::make_unique<QtEditableGrid>(*view);
        renew();
        cells.setCurrent(2, 1);
        QApplication::processEvents();
    }
    ~EditorWindow() override { editor.reset(); }

    void renew() {
        editor = std::make_unique<Editor>();
        editor->setFlexGridControl(*editable);
    }
    QLineEdit* box() const {
        auto* found = window.findChild<QLineEdit*>(QStringLiteral("tbFgEdit1"));
        return found && found->isVisible() ? found : nullptr;
    }
    void key(int code, const QString& text = {}, Qt::KeyboardModifiers modifiers = {}) const {
        QKeyEvent event(QEvent::KeyPress, code, modifiers, text);
        QApplication::sendEvent(window.focusWidget(), &event);
    }
    void inputMethod(const QString& preedit, const QString& commit) const {
        QInputMethodEvent event(preedit, {});
        event.setCommitString(commit);
        QApplication::sendEvent(window.focusWidget(), &event);
    }
    QRect cell() const { return view->cellGeometryIn(window, cells.Row(), cells.Col()); }
    const std::string& text(int row) const { return cells.TextMatrix(row, 1); }

    MSFlexGrid cells;
    QMainWindow window;
    FlexGridView* view;
    std::unique_ptr<QtEditableGrid> editable;
    std::unique_ptr<Editor> editor;
};

using KeyerGrid = EditorWindow<clsFlexGridEdit2>;
using MenuGrid = EditorWindow<clsFlexGridEdit>;

TEST_F(KeyerGrid, BoxLiesOverItsCellWhereverThatGoes) {
    key(Qt::Key_X, QStringLiteral("x"));
    ASSERT_NE(box(), nullptr);
    EXPECT_TRUE(box()->hasFocus());
    EXPECT_EQ(box()->text(), QStringLiteral("X"));
    EXPECT_EQ(box()->geometry(), cell());
    EXPECT_EQ(box()->font(), view->font());
    EXPECT_EQ(window.grab().toImage().pixelColor(cell().center()), QColor(0xFF, 0xC0, 0x80));

    view->setColumnWidth(0, 150);
    QApplication::processEvents();
    EXPECT_EQ(box()->geometry(), cell());
    EXPECT_GE(box()->width(), 149);  // up to the grid line
    view->verticalScrollBar()->setValue(1);
    EXPECT_EQ(box()->geometry(), cell());
    window.setContentsMargins(20, 30, 0, 0);
    QApplication::processEvents();
    EXPECT_EQ(box()->geometry(), cell());
    window.resize(140, 300);  // only a part of the cell is left
    QApplication::processEvents();
    EXPECT_EQ(box()->geometry(), cell());
    EXPECT_LT(box()->width(), view->columnWidth(0));
    window.resize(500, 300);

    view->verticalScrollBar()->setValue(20);
    EXPECT_EQ(box()->geometry().bottomRight(), QPoint(-1, -1));
    EXPECT_TRUE(box()->hasFocus());
    key(Qt::Key_Y, QStringLiteral("y"));
    EXPECT_EQ(box()->geometry(), cell());
    EXPECT_EQ(box()->text(), QStringLiteral("XY"));
}

TEST_F(KeyerGrid, DeadKeysAndInputMethodsOpenTheEditor) {
    inputMethod({}, QStringLiteral("é"));  // a dead key and its letter arrive as one commit
    ASSERT_NE(box(), nullptr);
    EXPECT_EQ(box()->text(), QStringLiteral("é"));
    inputMethod({}, QStringLiteral("a"));
    EXPECT_EQ(box()->text(), QStringLiteral("éA"));
    key(Qt::Key_Down);
    key(Qt::Key_Escape);

    inputMethod(QStringLiteral("c"), {});  // a composition: the grid stays its partner, the box shows it
    EXPECT_TRUE(view->hasFocus());
    ASSERT_NE(box(), nullptr);
    EXPECT_EQ(box()->displayText(), QStringLiteral(""));
    inputMethod(QStringLiteral("cq"), {});
    inputMethod({}, QStringLiteral("cq"));
    EXPECT_EQ(box()->text(), QStringLiteral("CQ"));
    EXPECT_TRUE(box()->hasFocus());
    key(Qt::Key_Return);
    EXPECT_EQ(text(3), "CQ");

    inputMethod(QStringLiteral("x"), {});
    inputMethod({}, {});  // taken back
    EXPECT_EQ(box(), nullptr);
    EXPECT_EQ(text(3), "CQ");
    EXPECT_TRUE(view->hasFocus());
}

TEST_F(KeyerGrid, RefusesWithAHint) {
    editor->refuseCharacters(";", "A semicolon ends the command");
    key(Qt::Key_X, QStringLiteral("x"));
    key(Qt::Key_Semicolon, QStringLiteral(";"));
    EXPECT_EQ(box()->text(), QStringLiteral("X"));
    EXPECT_TRUE(QToolTip::isVisible());
    EXPECT_TRUE(QToolTip::text().contains(QStringLiteral("A semicolon ends the command")));
    for (const char* bad : {"two\nlines", "Ω"}) {
        QApplication::clipboard()->setText(QString::fromUtf8(bad));
        key(Qt::Key_V, QStringLiteral("\x16"), Qt::ControlModifier);
        EXPECT_EQ(box()->text(), QStringLiteral("X")) << bad;
    }
    inputMethod({}, QStringLiteral("Ω"));
    EXPECT_EQ(box()->text(), QStringLiteral("X"));
    EXPECT_TRUE(QToolTip::text().contains(QStringLiteral("Ω")));
    key(Qt::Key_Return);
    key(Qt::Key_Semicolon, QStringLiteral(";"));  // as the first character
    EXPECT_EQ(box(), nullptr);
    EXPECT_EQ(text(2), "X");
}

TEST_F(KeyerGrid, ClipboardKeysOnTheGridMeanTheWholeCell) {
    key(Qt::Key_Space, QStringLiteral(" "));
    EXPECT_EQ(box()->selectedText(), QStringLiteral("TEXT 2"));
    EXPECT_EQ(box()->cursorPosition(), 0);
    key(Qt::Key_Escape, QStringLiteral("\x1B"));
    EXPECT_TRUE(view->hasFocus());
    key(Qt::Key_C, QStringLiteral("\x03"), Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("TEXT 2"));
    key(Qt::Key_Down);
    key(Qt::Key_Return);
    key(Qt::Key_V, QStringLiteral("\x16"), Qt::ControlModifier);
    key(Qt::Key_Return);
    EXPECT_EQ(text(3), "TEXT 2");
    EXPECT_EQ(cells.TextMatrix(3, 2), "6");
}

TEST_F(KeyerGrid, NamesEveryBoxAnewAndIsReplacedFromItsOwnEvents) {
    QLineEdit other(&window);
    other.setObjectName(QStringLiteral("tbFgEdit1"));
    renew();
    EXPECT_NE(window.findChild<QLineEdit*>(QStringLiteral("tbFgEdit11")), nullptr);
    other.setObjectName({});

    const Connection connection = cells.cellChanged.connect([this](int, int) { renew(); });
    QObject::connect(view, &FlexGridView::focusTaken, &window, [this] { renew(); });
    for (const int code : {Qt::Key_Down, Qt::Key_Return, Qt::Key_Escape, Qt::Key_Down, Qt::Key_Return}) {
        key(Qt::Key_X, QStringLiteral("x"));
        key(Qt::Key_Y, QStringLiteral("y"));
        key(code);
        inputMethod(QStringLiteral("p"), {});
        inputMethod({}, QStringLiteral("q"));
        key(code);
        QApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    EXPECT_LE(window.findChildren<QLineEdit*>(QRegularExpression(QStringLiteral("^tbFgEdit"))).size(), 1);
}

TEST_F(MenuGrid, TabRunsThroughYellowCellsAndLeavesTheOtherControlsAsTheyWere) {
    QLineEdit neighbour(&window);
    neighbour.show();
    for (int col = 1; col < 4; ++col) cells.setCellBackColor(2, col, 65535);
    cells.setCellBackColor(2, 3, {});
    editor->setTabKeyBehaviour(MoveCode::Right);
    key(Qt::Key_A, QStringLiteral("a"));
    EXPECT_EQ(neighbour.focusPolicy() & Qt::TabFocus, 0);
    key(Qt::Key_Tab, QStringLiteral("\t"));
    ASSERT_NE(box(), nullptr);
    EXPECT_EQ(box()->geometry(), cell());
    key(Qt::Key_Tab, QStringLiteral("\t"));
    EXPECT_EQ(cells.Col(), 3);
    EXPECT_EQ(box(), nullptr);  // not a yellow one
    EXPECT_TRUE(view->hasFocus());
    EXPECT_NE(neighbour.focusPolicy() & Qt::TabFocus, 0);
    key(Qt::Key_B, QStringLiteral("b"));
    EXPECT_EQ(box(), nullptr);
    EXPECT_EQ(text(2), "a");
}

}  // namespace
}  // namespace korvex
