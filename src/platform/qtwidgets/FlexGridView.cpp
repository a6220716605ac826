#include "platform/qtwidgets/FlexGridView.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <algorithm>
#include <utility>

#include "platform/qtwidgets/FlexGridDelegate.h"
#include "platform/qtwidgets/FlexGridHeader.h"
#include "platform/qtwidgets/FlexGridModel.h"

namespace korvex {

namespace {

constexpr int twipsPerPixel = 15;
/// The grids' column widths are made for small letters, on a desktop whose own have ten points. Where those are larger,
/// letters and columns grow alike.
constexpr double pointSizeOfWidths = 8.5;
constexpr double usualPointSize = 10;

double growthOf(const QWidget* view) {
    return std::max(QApplication::font(view).pointSizeF() / usualPointSize, 1.0);
}

int pixelsOf(double twips) {
    return twips <= 0 ? 0 : std::max(static_cast<int>(twips + twipsPerPixel / 2.0) / twipsPerPixel, 1);
}

/// What the key types; empty for keys that type nothing, for shortcuts of menus, and for Tab and Delete, which only
/// look like characters.
QString typedBy(const QKeyEvent& event) {
    const int key = event.key();
    if (event.modifiers() & (Qt::AltModifier | Qt::MetaModifier)) return {};
    if (key == Qt::Key_Delete || key == Qt::Key_Tab || key == Qt::Key_Backtab) return {};
    return event.text();
}

}  // namespace

FlexGridView::FlexGridView(MSFlexGrid& cells, QWidget* parent)
    : QTableView(parent),
      m_cells(cells),
      m_model(new FlexGridModel(cells, this)),
      m_titles(new FlexGridHeader(Qt::Horizontal, this)),
      m_rowLabels(new FlexGridHeader(Qt::Vertical, this)),
      m_corner(new FlexGridCorner(this)) {
    setUpHeaders();
    setModel(m_model);
    auto* delegate = new FlexGridDelegate(this);
    setItemDelegate(delegate);
    connect(delegate, &FlexGridDelegate::refused, this, &FlexGridView::editRefused);
    setSelectionMode(NoSelection);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setHorizontalScrollMode(ScrollPerPixel);
    takeFont();
    connect(m_model, &FlexGridModel::refreshed, this, &FlexGridView::applyAll);
    connect(m_model, &FlexGridModel::headerDataChanged, this, &FlexGridView::fitTitleHeight);
    connect(m_titles, &QHeaderView::sectionResized, this, &FlexGridView::fitTitleHeight);
    m_connections += m_cells.currentChanged.connect([this] { followCurrent(); });
    applyAll();
}

void FlexGridView::setUpHeaders() {
    setCornerButtonEnabled(false);
    setHorizontalHeader(m_titles);
    setVerticalHeader(m_rowLabels);
    m_titles->viewport()->installEventFilter(this);
    m_rowLabels->viewport()->installEventFilter(this);
}

void FlexGridView::takeFont() {
    QFont small = font();
    const double largest = pointSizeOfWidths * growthOf(this);
    if (small.pointSizeF() > largest) {
        small.setPointSizeF(largest);
        setFont(small);
    }
    m_titles->setFont(small);
    m_rowLabels->setFont(small);
    m_corner->setFont(small);
    m_rowLabels->setDefaultSectionSize(fontMetrics().height() + 4);
}

void FlexGridView::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() != QEvent::FontChange || !m_corner) return;
    takeFont();
    applyWidths();
    fitTitleHeight();
}

void FlexGridView::applyAll() {
    m_titles->setVisible(m_model->labelRows() == 1);
    m_rowLabels->setVisible(m_model->labelCols() == 1);
    m_corner->setVisible(m_model->labelRows() == 1 && m_model->labelCols() == 1);
    m_corner->setText(QString::fromStdString(m_cells.TextMatrix(0, 0)));
    applyWidths();
    applyHiddenRows();
    fitTitleHeight();
    followCurrent();
}

void FlexGridView::applyHiddenRows() {
    bool changed = false;
    for (int row = 0; row < m_model->rowCount(); ++row) {
        const bool hidden = m_cells.isRowHidden(row + m_model->labelRows());
        if (hidden == isRowHidden(row)) continue;
        setRowHidden(row, hidden);
        changed = true;
    }
    if (!changed) return;
    updateGeometries();  // the scroll bar must know the rows before it can go to one
    scrollToCurrent();
}

void FlexGridView::applyWidths() {
    const int labels = m_model->labelCols();
    const auto count = static_cast<std::size_t>(m_model->columnCount());
    if (m_appliedTwips.size() != count) m_appliedTwips.assign(count, -1);
    for (std::size_t column = 0; column < count; ++column) {
        const int twips = m_cells.ColWidth(static_cast<int>(column) + labels);
        if (std::exchange(m_appliedTwips[column], twips) != twips)
            setColumnWidth(int(column), pixelsOf(twips * growthOf(this)));
    }
    if (labels == 1)
        m_rowLabels->setFixedWidth(std::max(pixelsOf(m_cells.ColWidth(0) * growthOf(this)), widthOfNames()));
}

void FlexGridView::setNamesRows(bool names) {
    m_namesRows = names;
    applyWidths();
}

int FlexGridView::widthOfNames() const {
    if (!m_namesRows) return 0;
    int width = 0;
    for (int row = 0; row < m_model->rowCount(); ++row) {
        const QString name = m_model->headerData(row, Qt::Vertical, Qt::DisplayRole).toString();
        width = std::max(width, m_rowLabels->fontMetrics().horizontalAdvance(name));
    }
    return width + 4 * FlexGridDelegate::margin;
}

void FlexGridView::fitTitleHeight() {
    const int height = m_titles->heightForTitles();
    if (m_titles->height() != height || m_titles->minimumHeight() != height) m_titles->setFixedHeight(height);
}

void FlexGridView::followCurrent() {
    const QModelIndex current = m_model->indexOfCell(m_cells.Row(), m_cells.Col());
    if (!current.isValid() || current == currentIndex()) return;
    m_following = true;
    const bool chosen = m_choosesRows && selectionModel()->isRowSelected(current.row());
    if (chosen) {
        selectionModel()->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    } else {
        setCurrentIndex(current);
        // Whatever keys are held: it is the grid that went there.
        if (m_choosesRows) chooseRows({m_cells.Row()});
    }
    m_following = false;
}

void FlexGridView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    allowInputMethods();
    if (!m_extending) m_anchor = current.row();
    if (!m_following && current.isValid()) m_cells.setCurrent(m_model->rowOf(current), m_model->colOf(current));
}

void FlexGridView::setTakesTyping(bool takes) {
    m_takesTyping = takes;
    allowInputMethods();
}

void FlexGridView::setEditsCells(bool edits) {
    m_editsCells = edits;
    setEditTriggers(edits ? EditKeyPressed | AnyKeyPressed : EditTriggers(NoEditTriggers));
}

void FlexGridView::setChoosesRows(bool chooses) {
    m_choosesRows = chooses;
    setSelectionBehavior(chooses ? SelectRows : SelectItems);
    setSelectionMode(chooses ? ExtendedSelection : NoSelection);
    if (chooses) chooseRows({m_cells.Row()});
}

std::vector<int> FlexGridView::chosenRows() const {
    std::vector<int> rows;
    for (int row = 0; m_choosesRows && row < m_model->rowCount(); ++row) {
        if (selectionModel()->isRowSelected(row) && !isRowHidden(row)) rows.push_back(row + m_model->labelRows());
    }
    const bool hasCurrent = std::find(rows.begin(), rows.end(), m_cells.Row()) != rows.end();
    return hasCurrent ? rows : std::vector<int>{m_cells.Row()};
}

void FlexGridView::chooseRows(const std::vector<int>& rows) {
    QItemSelection chosen;
    for (const int row : rows) {
        const QModelIndex cell = m_model->indexOfCell(row, m_model->labelCols());
        if (cell.isValid()) chosen.select(cell, cell);
    }
    selectionModel()->select(chosen, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

/// The base class extends from where the mouse or a key was last, and knows nothing of where the grid has gone since.
void FlexGridView::setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) {
    if (!m_choosesRows || !m_extending) return QTableView::setSelection(rect, command);
    const QItemSelection rows(m_model->index(m_anchor, 0), m_model->index(currentIndex().row(), 0));
    selectionModel()->select(rows, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void FlexGridView::editCurrent() {
    if (m_editsCells && currentIndex().flags().testFlag(Qt::ItemIsEditable)) edit(currentIndex());
}

/// Whether the key was one that edits the current cell.
bool FlexGridView::typeIntoCell(QKeyEvent& event) {
    if (!m_editsCells) return false;
    if (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) {
        editCurrent();
        return true;
    }
    const QString text = typedBy(event);
    if (text.isEmpty() || !text.front().isPrint()) return false;
    QTableView::keyPressEvent(&event);
    return true;
}

void FlexGridView::allowInputMethods() {
    // The base class ties this to cells with an editor of its own kind, and does so anew at every change.
    setAttribute(Qt::WA_InputMethodEnabled, m_takesTyping);
}

QVariant FlexGridView::inputMethodQuery(Qt::InputMethodQuery query) const {
    if (query == Qt::ImEnabled) return m_takesTyping;
    if (query == Qt::ImCursorRectangle) return cellGeometry(m_cells.Row(), m_cells.Col());
    return QTableView::inputMethodQuery(query);
}

void FlexGridView::inputMethodEvent(QInputMethodEvent* event) {
    const bool composing = !event->preeditString().isEmpty();
    event->accept();
    if (composing || m_composing) {
        m_composing = composing;
        Q_EMIT composed(event);
    } else if (m_takesTyping && !event->commitString().isEmpty()) {
        Q_EMIT keyTyped(event->commitString());
    }
}

void FlexGridView::keyPressEvent(QKeyEvent* event) {
    m_keySwallowed = false;
    Q_EMIT keyDown(event->key(), event->modifiers());
    if (m_keySwallowed || typeIntoCell(*event)) return;
    const QString text = typedBy(*event);
    const bool copies = !m_takesTyping && event->matches(QKeySequence::Copy);
    if (text.isEmpty() || copies) {
        m_extending = event->modifiers() & Qt::ShiftModifier;
        QTableView::keyPressEvent(event);
        m_extending = false;
    } else if (m_takesTyping) {
        Q_EMIT keyTyped(text);
    } else {
        event->ignore();
    }
}

void FlexGridView::mousePressEvent(QMouseEvent* event) {
    const QModelIndex cell = indexAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton) {
        m_extending = event->modifiers() & Qt::ShiftModifier;
        QTableView::mousePressEvent(event);
        m_extending = false;
        // The current cell may be a label, where the view cannot follow: then the pressed cell is no news to the view.
        if (cell.isValid()) m_cells.setCurrent(m_model->rowOf(cell), m_model->colOf(cell));
    }
    if (cell.isValid()) Q_EMIT cellPressed(m_model->rowOf(cell), m_model->colOf(cell), event->button());
}

void FlexGridView::mouseMoveEvent(QMouseEvent* event) {
    // Dragging must not carry the current cell along: hosts remember the cell that was pressed.
    if (event->buttons() == Qt::NoButton) QTableView::mouseMoveEvent(event);
}

void FlexGridView::mouseDoubleClickEvent(QMouseEvent* event) {
    const QModelIndex cell = indexAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton && cell.isValid()) {
        Q_EMIT cellDoubleClicked(m_model->rowOf(cell), m_model->colOf(cell));
    } else {
        mousePressEvent(event);
    }
}

void FlexGridView::focusInEvent(QFocusEvent* event) {
    QTableView::focusInEvent(event);
    allowInputMethods();
    Q_EMIT focusTaken();
}

bool FlexGridView::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress) {
        const auto& press = static_cast<const QMouseEvent&>(*event);
        if (watched == m_titles->viewport()) pressLabel(*m_titles, press);
        if (watched == m_rowLabels->viewport()) pressLabel(*m_rowLabels, press);
    }
    return QTableView::eventFilter(watched, event);
}

void FlexGridView::pressLabel(const QHeaderView& header, const QMouseEvent& event) {
    const int section = header.logicalIndexAt(event.position().toPoint());
    const bool onBorder = header.cursor().shape() == Qt::SplitHCursor;  // a press there changes a width
    if (section < 0 || onBorder) return;
    if (&header == m_titles) {
        Q_EMIT cellPressed(0, section + m_model->labelCols(), event.button());
    } else {
        Q_EMIT cellPressed(section + m_model->labelRows(), 0, event.button());
    }
}

void FlexGridView::updateGeometries() {
    QTableView::updateGeometries();
    if (!m_corner) return;
    m_corner->setGeometry(m_rowLabels->x(), m_titles->y(), m_rowLabels->width(), m_titles->height());
    m_corner->raise();
    Q_EMIT cellsMoved();
}

void FlexGridView::scrollContentsBy(int dx, int dy) {
    QTableView::scrollContentsBy(dx, dy);
    Q_EMIT cellsMoved();
}

QRect FlexGridView::cellGeometry(int row, int col) const {
    const QModelIndex cell = m_model->indexOfCell(row, col);
    if (!cell.isValid()) return labelGeometry(row, col);
    return (visualRect(cell) & viewport()->rect()).translated(viewport()->pos());
}

QRect FlexGridView::labelGeometry(int row, int col) const {
    if (row < m_model->labelRows() && col < m_model->labelCols()) return m_corner->geometry();
    if (row < m_model->labelRows()) {
        const int section = col - m_model->labelCols();
        const QRect label(m_titles->sectionViewportPosition(section), 0, m_titles->sectionSize(section),
                          m_titles->height());
        return label.translated(m_titles->pos()) & m_titles->geometry();
    }
    const int section = row - m_model->labelRows();
    const QRect label(0, m_rowLabels->sectionViewportPosition(section), m_rowLabels->width(),
                      m_rowLabels->sectionSize(section));
    return label.translated(m_rowLabels->pos()) & m_rowLabels->geometry();
}

QRect FlexGridView::cellGeometryIn(const QWidget& host, int row, int col) const {
    const QRect cell = cellGeometry(row, col);
    return {mapTo(&host, cell.topLeft()), cell.size()};
}

bool FlexGridView::isRowVisible(int row) const {
    if (row < m_model->labelRows()) return true;
    if (m_cells.isRowHidden(row)) return false;
    const int top = rowViewportPosition(row - m_model->labelRows());
    return top > -rowHeight(row - m_model->labelRows()) && top < viewport()->height();
}

bool FlexGridView::isColVisible(int col) const {
    if (col < m_model->labelCols()) return true;
    const int left = columnViewportPosition(col - m_model->labelCols());
    return left > -columnWidth(col - m_model->labelCols()) && left < viewport()->width();
}

void FlexGridView::scrollToCurrent() {
    const QModelIndex current = m_model->indexOfCell(m_cells.Row(), m_cells.Col());
    if (current.isValid()) scrollTo(current);
}

QSize FlexGridView::sizeOfWholeGrid() const {
    const int labels = m_model->labelCols() == 1 ? m_rowLabels->width() : 0;
    const int titles = m_model->labelRows() == 1 ? m_titles->height() : 0;
    return {labels + m_titles->length() + 2 * frameWidth(), titles + m_rowLabels->length() + 2 * frameWidth()};
}

}  // namespace korvex
