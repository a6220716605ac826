#include "gridedit/FlexGridEditor.h"

#include <algorithm>

#include "base/CodePage.h"

namespace korvex {

namespace {

constexpr char blank = ' ';
constexpr char deleteCharacter = 0x7F;

bool isControl(char c) {
    const auto code = static_cast<unsigned char>(c);
    return code < static_cast<unsigned char>(blank) || c == deleteCharacter;
}

/// A control character or a blank opens the editor with what the cell holds; so does a double click, which types
/// nothing.
bool keepsCellText(const std::string& typedText) {
    return typedText.empty() || (typedText.size() == 1 && (isControl(typedText.front()) || typedText.front() == blank));
}

}  // namespace

FlexGridEditor::~FlexGridEditor() {
    m_connections.endAll();
    m_life.reset();
    if (m_box && std::exchange(m_editing, false)) m_box->hide();
    restoreTabStops();
}

void FlexGridEditor::setFlexGridControl(EditableGrid& grid) {
    const Life alive = life();
    writeBack();
    if (alive.expired()) return;
    m_connections.endAll();
    m_box.reset();
    m_grid = &grid;
    m_box = grid.makeEditBox(*this);
    m_box->setBorderStyle(m_editBoxBorderStyle);
    m_connections += grid.doubleClicked.connect([this] { open({}); });
    m_connections += grid.keyPressed.connect([this](const std::string& utf8) { gridKeyPressed(utf8); });
    m_connections += grid.gotFocus.connect([this] { writeBack(); });
    m_connections += grid.scrolled.connect([this] { gridScrolled(); });
    m_connections += grid.windowClosing.connect([this] { writeBack(); });
    m_connections += grid.cells().leavingCell.connect([this] { gridLeavesCell(); });
}

void FlexGridEditor::setEditBoxBorderStyle(int style) {
    m_editBoxBorderStyle = style;
    if (m_box) m_box->setBorderStyle(style);
}

void FlexGridEditor::setTabKeyBehaviour(MoveCode code) {
    if (code == MoveCode::None) restoreTabStops();
    m_tabKeyBehaviour = code;
}

void FlexGridEditor::refuseCharacters(std::string characters, std::string reason) {
    m_refusedCharacters.emplace_back(std::move(characters), std::move(reason));
}

std::optional<std::string> FlexGridEditor::refusal(const std::string& utf8) const {
    for (const auto& [characters, reason] : m_refusedCharacters) {
        if (utf8.find_first_of(characters) != std::string::npos) return reason;
    }
    if (std::any_of(utf8.begin(), utf8.end(), isControl))
        return "A cell cannot hold line breaks, tabs and control characters";
    if (const auto character = firstInexpressible(utf8)) {
        return "\"" + *character + "\" cannot be stored or sent: Windows-1252 does not have it";
    }
    return std::nullopt;
}

void FlexGridEditor::boxRefused(const std::string& reason) {
    const Life alive = life();
    m_grid->showHint(reason);
    if (!alive.expired()) refused.emit(reason);
}

void FlexGridEditor::gridKeyPressed(const std::string& utf8) {
    if (keepsCellText(utf8)) {
        open({});
        return;
    }
    if (!mayOpen()) return;
    const std::string text = typed(utf8);
    if (const auto reason = refusal(text)) {
        boxRefused(*reason);
    } else {
        open(text);
    }
}

void FlexGridEditor::gridLeavesCell() {
    if (!m_moving) writeBack();
}

void FlexGridEditor::gridScrolled() {
    if (!m_editing) return;
    if (m_grid->isCurrentInSight()) {
        m_box->layOverCurrentCell();
    } else {
        m_box->putOutOfSight();
    }
}

void FlexGridEditor::open(const std::string& typedText) {
    if (!mayOpen()) return;
    const Life alive = life();
    m_grid->bringCurrentIntoSight();
    if (alive.expired()) return;
    if (!m_editing) beforeOpening();
    m_editing = true;
    fillBox(typedText);
    if (alive.expired()) return;
    m_box->layOverCurrentCell();
    m_box->takeFocus();
    if (alive.expired() || m_tabKeyBehaviour == MoveCode::None || std::exchange(m_tabStopsTaken, true)) return;
    m_grid->takeTabStops();
}

void FlexGridEditor::fillBox(const std::string& typedText) {
    const Life alive = life();
    m_box->setText(typedText.empty() ? cells().TextMatrix(cells().Row(), cells().Col()) : typedText);
    if (alive.expired()) return;
    if (typedText.empty()) {
        m_box->selectAll();
    } else {
        m_box->caretToEnd();
    }
}

void FlexGridEditor::writeBack() {
    if (!m_editing) return;
    const Life alive = life();
    MSFlexGrid& grid = cells();
    const std::string text = m_box->text();
    const CellPosition cell{grid.Row(), grid.Col()};
    close();
    if (!alive.expired()) grid.setTextMatrix(cell.row, cell.col, text);
}

bool FlexGridEditor::boxKeyDown(EditKey key) {
    if (!m_editing) return false;
    const Life alive = life();
    if (!m_grid->isCurrentInSight()) m_grid->bringCurrentIntoSight();
    if (alive.expired()) return true;
    switch (key) {
        case EditKey::Tab: moveBy(m_tabKeyBehaviour); return true;
        case EditKey::Enter: moveBy(m_enterKeyBehaviour); return true;
        case EditKey::Up: moveBy(MoveCode::Up); return true;
        case EditKey::Down: moveBy(MoveCode::Down); return true;
        case EditKey::Escape: escape(); return true;
        case EditKey::Other: break;
    }
    return false;
}

void FlexGridEditor::boxTextChanged() {
    if (m_editing) textChanged(m_box->text());
}

void FlexGridEditor::moveBy(MoveCode code) {
    const Life alive = life();
    m_moving = true;
    switch (code) {
        case MoveCode::None: endInPlace(); break;
        case MoveCode::Right:
        case MoveCode::Down:
        case MoveCode::Up: moveOn(code); break;
    }
    if (!alive.expired()) m_moving = false;
}

void FlexGridEditor::endInPlace() {
    const Life alive = life();
    m_grid->giveFocus();
    // The grid tells of its focus, which has written back by now unless the whole window has lost the focus.
    if (!alive.expired()) writeBack();
}

void FlexGridEditor::moveOn(MoveCode code) {
    const Life alive = life();
    MSFlexGrid& grid = cells();
    grid.setTextMatrix(grid.Row(), grid.Col(), m_box->text());
    if (alive.expired()) return;
    const CellPosition next = cellAfter(grid, code);
    grid.setCurrent(next.row, next.col);
    if (alive.expired()) return;
    // The text is in its cell, so the box counts as closed until the new cell opens it: it may be one that does not.
    if (mayOpen()) {
        m_editing = false;
        open({});
    } else {
        close();
    }
}

void FlexGridEditor::escape() {
    const Life alive = life();
    close();
    if (alive.expired()) return;
    m_grid->giveFocus();
    if (!alive.expired()) afterEscape();
}

void FlexGridEditor::close() {
    if (!std::exchange(m_editing, false)) return;
    const Life alive = life();
    m_box->hide();
    if (!alive.expired()) restoreTabStops();
}

void FlexGridEditor::restoreTabStops() {
    if (std::exchange(m_tabStopsTaken, false)) m_grid->restoreTabStops();
}

}  // namespace korvex
