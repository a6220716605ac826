#pragma once

#include <optional>
#include <string>

namespace korvex {

/// The keys of an edit box that mean something to its editor.
enum class EditKey { Other, Tab, Enter, Up, Down, Escape };

/// What an edit box tells its editor. A call may destroy the editor, and with it the box's handle.
class EditBoxEvents {
public:
    virtual ~EditBoxEvents() = default;
    /// Whether the editor has used the key; then the box must not act on it.
    virtual bool boxKeyDown(EditKey key) = 0;
    /// What reaches the box when `utf8` is typed.
    virtual std::string boxKeyPress(const std::string& utf8) const = 0;
    virtual void boxTextChanged() = 0;
    virtual void boxLostFocus() = 0;
    /// Why `utf8` must not stand in the box; nothing when it may. The box leaves its text as it is then and says so
    /// with `boxRefused`.
    virtual std::optional<std::string> refusal(const std::string& utf8) const = 0;
    virtual void boxRefused(const std::string& reason) = 0;
};

/// A text box on the window of a grid, hidden until it is laid over a cell. Its destruction takes it off the window.
class EditBox {
public:
    virtual ~EditBox() = default;

    /// 0 none, 1 a single line round the box.
    virtual void setBorderStyle(int style) = 0;

    virtual std::string text() const = 0;
    virtual void setText(const std::string& utf8) = 0;
    virtual void caretToEnd() = 0;
    /// All text selected, the caret at the start.
    virtual void selectAll() = 0;

    /// Shows it exactly over the grid's current cell, or follows that cell.
    virtual void layOverCurrentCell() = 0;
    /// To minus its own width and height: still there, still taking keys, but not seen.
    virtual void putOutOfSight() = 0;
    virtual void takeFocus() = 0;
    /// Hides it; the focus, if it has it, goes to the grid.
    virtual void hide() = 0;
};

}  // namespace korvex
