#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>

#include "gridedit/EditableGrid.h"
#include "gridedit/MoveCode.h"
#include "gridedit/clsFlexGridEdit.h"
#include "gridedit/clsFlexGridEdit2.h"

namespace korvex {
namespace {

/// A window with one grid, as values. The focus behaves like a window's: giving it to one takes it from the other.
class FakeEditableGrid : public EditableGrid {
public:
    FakeEditableGrid(int rows, int cols) : m_cells(rows, cols) {}

    MSFlexGrid& cells() override { return m_cells; }
    std::unique_ptr<EditBox> makeEditBox(EditBoxEvents& listener) override {
        ++boxes;
        events = &listener;
        return std::make_unique<Box>(*this);
    }
    void giveFocus() override {
        if (boxFocused) {
            boxFocused = false;
            events->boxLostFocus();
        }
        gridFocused = true;
        gotFocus.emit();
    }
    bool isCurrentInSight() const override { return inSight; }
    void bringCurrentIntoSight() override { inSight = true; }
    void showHint(const std::string& utf8) override { hint = utf8; }
    void takeTabStops() override { tabStops = "taken"; }
    void restoreTabStops() override { tabStops = "as before"; }

    /// What a user does in the box.
    void type(const std::string& characters) {
        const std::string reaching = events->boxKeyPress(characters);
        if (const auto reason = events->refusal(text + reaching)) {
            events->boxRefused(*reason);
        } else {
            setText(text + reaching);
        }
    }
    void setText(const std::string& utf8) {
        text = utf8;
        if (events) events->boxTextChanged();
    }
    bool press(EditKey key) { return events->boxKeyDown(key); }

    int boxes = 0;
    EditBoxEvents* events = nullptr;
    std::string text;
    std::string selection;  // "all", "caret at end"
    std::string place = "hidden";
    bool boxFocused = false;
    bool gridFocused = false;
    bool inSight = true;
    std::string hint;
    std::string tabStops = "as before";
    std::function<void()> onBoxFocus;

private:
    class Box : public EditBox {
    public:
        explicit Box(FakeEditableGrid& window) : m_window(window) {}
        ~Box() override {
            --m_window.boxes;
            m_window.events = nullptr;
        }
        void setBorderStyle(int) override {}
        std::string text() const override { return m_window.text; }
        void setText(const std::string& utf8) override { m_window.setText(utf8); }
        void caretToEnd() override { m_window.selection = "caret at end"; }
        void selectAll() override { m_window.selection = "all"; }
        void layOverCurrentCell() override {
            m_window.place = std::to_string(m_window.m_cells.Row()) + "," + std::to_string(m_window.m_cells.Col());
        }
        void putOutOfSight() override { m_window.place = "out of sight"; }
        void takeFocus() override {
            m_window.boxFocused = true;
            m_window.gridFocused = false;
            if (m_window.onBoxFocus) m_window.onBoxFocus();
        }
        void hide() override {
            m_window.place = "hidden";
            if (m_window.boxFocused) m_window.giveFocus();
        }

    private:
        FakeEditableGrid& m_window;
    };

    MSFlexGrid m_cells;
};

CellPosition after(MSFlexGrid& grid, CellPosition from, MoveCode code) {
    grid.setCurrent(from.row, from.col);
    return cellAfter(grid, code);
}

TEST(MoveCode, GoesThroughTheWholeGridAndOnAtTheOtherEnd) {
    MSFlexGrid grid(4, 3);  // cells 1,1 .. 3,2
    EXPECT_EQ(after(grid, {1, 1}, MoveCode::Right), (CellPosition{1, 2}));
    EXPECT_EQ(after(grid, {1, 2}, MoveCode::Right), (CellPosition{2, 1}));
    EXPECT_EQ(after(grid, {3, 2}, MoveCode::Right), (CellPosition{1, 1}));
    EXPECT_EQ(after(grid, {3, 1}, MoveCode::Down), (CellPosition{1, 2}));
    EXPECT_EQ(after(grid, {3, 2}, MoveCode::Down), (CellPosition{1, 1}));
    EXPECT_EQ(after(grid, {1, 2}, MoveCode::Up), (CellPosition{3, 1}));
    EXPECT_EQ(after(grid, {1, 1}, MoveCode::Up), (CellPosition{3, 2}));

    grid.setFixed(1, 0);
    EXPECT_EQ(after(grid, {1, 2}, MoveCode::Right), (CellPosition{2, 0}));
    grid.setHiddenRows({false, false, true, false});
    EXPECT_EQ(after(grid, {1, 2}, MoveCode::Right), (CellPosition{3, 0}));
    EXPECT_EQ(after(grid, {3, 1}, MoveCode::Up), (CellPosition{1, 1}));
    grid.setHiddenRows({false, true, true, true});
    EXPECT_TRUE(grid.isRowHidden(cellAfter(grid, MoveCode::Down).row));  // nowhere to go, and no end of the search

    MSFlexGrid onlyLabels(1, 3);
    EXPECT_EQ(cellAfter(onlyLabels, MoveCode::Down), (CellPosition{onlyLabels.Row(), onlyLabels.Col()}));
}

class KeyerEditor : public testing::Test {
protected:
    KeyerEditor() : window(6, 3) {
        for (int row = 1; row < 6; ++row) cells().setTextMatrix(row, 1, "TEXT " + std::to_string(row));
        cells().setCurrent(2, 1);
        editor = std::make_unique<clsFlexGridEdit2>();
        editor->setFlexGridControl(window);
    }
    MSFlexGrid& cells() { return window.cells(); }

    FakeEditableGrid window;
    std::unique_ptr<clsFlexGridEdit2> editor;
};

TEST_F(KeyerEditor, OpensWithWhatWasTypedOrWithTheCell) {
    window.keyPressed.emit("x");
    EXPECT_EQ(window.text, "X");
    EXPECT_EQ(window.selection, "caret at end");
    EXPECT_EQ(window.place, "2,1");
    EXPECT_TRUE(window.boxFocused);
    window.press(EditKey::Escape);
    EXPECT_EQ(cells().TextMatrix(2, 1), "TEXT 2");
    EXPECT_EQ(window.place, "hidden");
    EXPECT_TRUE(window.gridFocused);

    for (const char* opener : {" ", "\r", "\x1B", "\x01"}) {
        window.keyPressed.emit(opener);
        EXPECT_EQ(window.text, "TEXT 2");
        EXPECT_EQ(window.selection, "all");
        window.press(EditKey::Enter);
    }
    window.doubleClicked.emit();
    EXPECT_EQ(window.selection, "all");
    window.setText("");  // emptied, and left by the mouse
    cells().setCurrent(4, 1);
    EXPECT_EQ(cells().TextMatrix(2, 1), "");
    EXPECT_EQ(cells().TextMatrix(4, 1), "TEXT 4");
    EXPECT_EQ(window.place, "hidden");
}

TEST_F(KeyerEditor, WritesBackAndMovesByKeys) {
    window.keyPressed.emit("a");
    EXPECT_TRUE(window.press(EditKey::Down));
    EXPECT_EQ(cells().TextMatrix(2, 1), "A");
    EXPECT_EQ(window.place, "3,1");
    EXPECT_EQ(window.text, "TEXT 3");
    EXPECT_EQ(window.selection, "all");
    EXPECT_TRUE(window.boxFocused);
    window.setText("UP");
    EXPECT_TRUE(window.press(EditKey::Up));
    EXPECT_EQ(cells().TextMatrix(3, 1), "UP");
    EXPECT_EQ(window.text, "A");

    for (const EditKey key : {EditKey::Enter, EditKey::Tab}) {  // both end the edit in place
        window.keyPressed.emit("z");
        EXPECT_TRUE(window.press(key));
        EXPECT_EQ(cells().TextMatrix(2, 1), "Z");
        EXPECT_EQ(cells().Row(), 2);
        EXPECT_EQ(window.place, "hidden");
        EXPECT_TRUE(window.gridFocused);
    }

    editor->setEnterKeyBehaviour(MoveCode::Down);
    cells().setCurrent(5, 2);
    window.keyPressed.emit("7");
    window.press(EditKey::Enter);
    EXPECT_EQ(cells().TextMatrix(5, 2), "7");
    EXPECT_EQ(window.place, "1,1");
    EXPECT_EQ(window.text, "TEXT 1");

    editor->setEnterKeyBehaviour(static_cast<MoveCode>(4));
    window.setText("KEPT");
    EXPECT_TRUE(window.press(EditKey::Enter));
    EXPECT_EQ(window.text, "KEPT");
    EXPECT_EQ(window.place, "1,1");
}

TEST_F(KeyerEditor, CountsWhileTyping) {
    window.keyPressed.emit("q");
    EXPECT_EQ(cells().TextMatrix(2, 2), "1");
    window.setText(std::string(49, 'E'));
    EXPECT_EQ(cells().TextMatrix(2, 2), "49");
    window.type("e");
    EXPECT_EQ(cells().TextMatrix(2, 2), "Max.");
    window.setText("\xC3\x84");  // one character, two bytes
    EXPECT_EQ(cells().TextMatrix(2, 2), "1");
    window.press(EditKey::Down);
    EXPECT_EQ(cells().TextMatrix(2, 2), "1");
    EXPECT_EQ(cells().TextMatrix(3, 2), "6");

    window.press(EditKey::Escape);
    cells().setTextMatrix(3, 2, "as read");
    window.keyPressed.emit("q");
    window.press(EditKey::Escape);
    EXPECT_EQ(cells().TextMatrix(3, 2), "as read");
}

TEST_F(KeyerEditor, RefusesWhatCannotBeStoredAndSaysWhy) {
    editor->refuseCharacters("|;", "No separators");
    std::string told;
    const Connection connection = editor->refused.connect([&](const std::string& reason) { told = reason; });
    window.keyPressed.emit(";");
    EXPECT_EQ(told, "No separators");
    EXPECT_EQ(window.hint, "No separators");
    EXPECT_EQ(window.place, "hidden");
    window.keyPressed.emit("a");
    for (const char* bad : {"|", "\xCE\xA9", "two\nlines"}) {
        told.clear();
        window.type(bad);
        EXPECT_FALSE(told.empty()) << bad;
        EXPECT_EQ(window.text, "A");
    }
    window.type("\xE2\x82\xAC");  // the euro sign is in Windows-1252
    EXPECT_EQ(window.text, "A\xE2\x82\xAC");
}

TEST_F(KeyerEditor, FollowsItsCellOutOfSightAndBack) {
    window.keyPressed.emit("a");
    window.inSight = false;
    window.scrolled.emit();
    EXPECT_EQ(window.place, "out of sight");
    EXPECT_FALSE(window.press(EditKey::Other));
    EXPECT_TRUE(window.inSight);
    window.scrolled.emit();
    EXPECT_EQ(window.place, "2,1");
    EXPECT_EQ(window.text, "A");
}

TEST_F(KeyerEditor, TakesTabStopsOnceAndGivesThemBack) {
    editor->setTabKeyBehaviour(MoveCode::Right);
    window.keyPressed.emit("a");
    EXPECT_EQ(window.tabStops, "taken");
    window.tabStops = "still taken";
    window.press(EditKey::Tab);  // the next cell must not learn the emptied tab stops
    EXPECT_EQ(window.place, "2,2");
    EXPECT_EQ(window.tabStops, "still taken");
    window.press(EditKey::Enter);
    EXPECT_EQ(window.tabStops, "as before");
    window.keyPressed.emit("a");
    editor->setTabKeyBehaviour(MoveCode::None);
    EXPECT_EQ(window.tabStops, "as before");
}

TEST_F(KeyerEditor, KeepsWhatWasTypedWhenTheWindowCloses) {
    window.keyPressed.emit("a");
    window.windowClosing.emit();
    EXPECT_EQ(cells().TextMatrix(2, 1), "A");
    window.keyPressed.emit("b");
    editor->writeBack();  // a host that saves
    EXPECT_EQ(cells().TextMatrix(2, 1), "B");
    editor.reset();
    EXPECT_EQ(window.boxes, 0);
    window.keyPressed.emit("c");
    EXPECT_EQ(window.place, "hidden");
}

TEST_F(KeyerEditor, MayBeReplacedFromEverythingThatItCauses) {
    const auto replace = [this] {
        editor = std::make_unique<clsFlexGridEdit2>();
        editor->setFlexGridControl(window);
    };
    const auto exerciseAll = [this] {
        for (const EditKey key : {EditKey::Down, EditKey::Up, EditKey::Enter, EditKey::Escape}) {
            window.keyPressed.emit("a");
            window.type("b");
            window.press(key);
            window.keyPressed.emit(";");
        }
        editor->refuseCharacters(";", "no");
        window.keyPressed.emit(";");
        window.doubleClicked.emit();
        cells().setCurrent(cells().Row() == 1 ? 2 : 1, 1);
        EXPECT_EQ(window.boxes, 1);
    };
    {
        const Connection connection = cells().cellChanged.connect([&](int, int) { replace(); });
        exerciseAll();
    }
    {
        const Connection connection = cells().leavingCell.connect(replace);
        const Connection connection2 = cells().currentChanged.connect(replace);
        exerciseAll();
    }
    {
        const Connection connection = window.gotFocus.connect(replace);
        exerciseAll();
    }
    window.onBoxFocus = replace;
    exerciseAll();
}

TEST(MenuEditor, OpensYellowCellsOnlyAndKeepsLetters) {
    FakeEditableGrid window(4, 3);
    MSFlexGrid& cells = window.cells();
    cells.setTextMatrix(1, 2, "old");
    for (int row = 1; row < 4; ++row) cells.setCellBackColor(row, 2, clsFlexGridEdit::editableColour);
    clsFlexGridEdit editor;
    editor.setFlexGridControl(window);

    cells.setCurrent(1, 1);
    window.doubleClicked.emit();
    window.keyPressed.emit("x");
    EXPECT_EQ(window.place, "hidden");

    cells.setCurrent(3, 2);
    window.keyPressed.emit("x");
    EXPECT_EQ(window.text, "x");
    window.press(EditKey::Down);  // leads to a cell that is not yellow: none, so the first one, which is not either
    EXPECT_EQ(cells.TextMatrix(3, 2), "x");
    EXPECT_EQ(cells.Col(), 1);
    EXPECT_EQ(window.place, "hidden");
    EXPECT_TRUE(window.gridFocused);
    EXPECT_FALSE(editor.isEditing());
}

}  // namespace
}  // namespace korvex
