#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "gridedit/EditableGrid.h"

namespace korvex::fakes {

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

}  // namespace korvex::fakes
