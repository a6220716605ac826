#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/Signal.h"
#include "gridedit/EditBox.h"
#include "gridedit/EditableGrid.h"
#include "gridedit/MoveCode.h"

namespace korvex {

/// Makes a grid editable in place: an edit box is laid over the current cell, its text goes back into the cell when the
/// cell is left, and keys move on to a neighbour. What is common to both kinds of editor; clsFlexGridEdit and
/// clsFlexGridEdit2 differ in which cells open and in what happens while typing.
///
/// The host may destroy or replace an editor at any moment, also from what the editor itself causes. A host that saves,
/// sends or replaces the grid's content calls `writeBack` first, because an open box holds text that the grid does not
/// have yet. Grid and window must outlive the editor.
class FlexGridEditor : private EditBoxEvents {
public:
    FlexGridEditor() = default;
    FlexGridEditor(const FlexGridEditor&) = delete;
    FlexGridEditor& operator=(const FlexGridEditor&) = delete;
    ~FlexGridEditor() override;

    /// Binds the editor to a grid and makes the hidden edit box there; a box made before goes.
    void setFlexGridControl(EditableGrid& grid);
    void setEditBoxBorderStyle(int style);
    void setEnterKeyBehaviour(MoveCode code) { m_enterKeyBehaviour = code; }
    void setTabKeyBehaviour(MoveCode code);
    /// From now on none of `characters` (ASCII) can be typed or pasted; `reason` is told then.
    void refuseCharacters(std::string characters, std::string reason);

    bool isEditing() const { return m_editing; }
    /// While a box is open: its text goes into the cell and the box closes.
    void writeBack();

    Signal<const std::string&> refused;  ///< why typed or pasted text was not taken (UTF-8, for the user)

protected:
    virtual bool mayOpen() const { return true; }
    virtual std::string typed(const std::string& utf8) const { return utf8; }
    /// The text of the open box is another one.
    virtual void textChanged(const std::string& /*utf8*/) {}
    virtual void beforeOpening() {}
    virtual void afterEscape() {}

    MSFlexGrid& cells() const { return m_grid->cells(); }

private:
    using Life = std::weak_ptr<void>;

    bool boxKeyDown(EditKey key) override;
    std::string boxKeyPress(const std::string& utf8) const override { return typed(utf8); }
    void boxTextChanged() override;
    void boxLostFocus() override { restoreTabStops(); }
    std::optional<std::string> refusal(const std::string& utf8) const override;
    void boxRefused(const std::string& reason) override;

    void gridKeyPressed(const std::string& utf8);
    void gridLeavesCell();
    void gridScrolled();

    void open(const std::string& typedText);
    void fillBox(const std::string& typedText);
    void moveBy(MoveCode code);
    void endInPlace();
    void moveOn(MoveCode code);
    void escape();
    void close();
    void restoreTabStops();
    /// Expires when this editor is destroyed; asked after every call that reaches the host.
    Life life() const { return m_life; }

    EditableGrid* m_grid = nullptr;
    std::unique_ptr<EditBox> m_box;
    int m_editBoxBorderStyle = 0;
    MoveCode m_enterKeyBehaviour = MoveCode::None;
    MoveCode m_tabKeyBehaviour = MoveCode::None;
    std::vector<std::pair<std::string, std::string>> m_refusedCharacters;

    bool m_editing = false;
    bool m_moving = false;  // this editor itself changes the grid's current cell
    bool m_tabStopsTaken = false;
    std::shared_ptr<void> m_life = std::make_shared<char>();
    Connections m_connections;
};

}  // namespace korvex
