#include "gridedit/ui/QtEditableGrid.h"

#include <QCoreApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QTextDocument>
#include <QToolTip>
#include <utility>

#include "gridedit/ui/CellEditBox.h"

namespace korvex {

namespace {

constexpr int hintMs = 5000;
constexpr char controlC = '\x03';
constexpr char controlV = '\x16';
constexpr char controlX = '\x18';

}  // namespace

/// The editor's handle of a CellEditBox. The widget itself lives on until its events are over.
class QtEditableGrid::Box : public EditBox {
public:
    Box(QtEditableGrid& grid, CellEditBox& box) : m_grid(grid), m_box(&box) {}
    ~Box() override {
        if (m_box) m_box->release();
    }

    void setBorderStyle(int style) override {
        if (m_box) m_box->setFrame(style != 0);
    }
    std::string text() const override { return m_box ? m_box->text().toStdString() : std::string(); }
    void setText(const std::string& utf8) override {
        if (m_box) m_box->setText(QString::fromStdString(utf8));
    }
    void caretToEnd() override {
        if (m_box) m_box->end(false);
    }
    void selectAll() override {
        if (m_box) m_box->setSelection(int(m_box->text().size()), -int(m_box->text().size()));
    }
    void layOverCurrentCell() override {
        if (!m_box || !m_grid.m_view) return;
        m_grid.watchWindow();
        m_box->setFont(m_grid.m_view->font());
        m_box->setGeometry(
            m_grid.m_view->cellGeometryIn(*m_box->parentWidget(), m_grid.m_cells.Row(), m_grid.m_cells.Col()));
        m_box->raise();
        m_box->show();
    }
    void putOutOfSight() override {
        if (m_box) m_box->move(-m_box->width(), -m_box->height());
    }
    void takeFocus() override {
        // While an input method composes, moving the focus would break the composition off.
        if (m_box && !m_grid.m_composing) m_box->setFocus(Qt::OtherFocusReason);
    }
    void hide() override {
        const QPointer<CellEditBox> box = m_box;  // giving the focus away may end this handle
        if (box && box->window()->focusWidget() == box) m_grid.giveFocus();
        if (box) box->hide();
    }

private:
    QtEditableGrid& m_grid;
    QPointer<CellEditBox> m_box;
};

QtEditableGrid::QtEditableGrid(FlexGridView& view) : m_cells(view.cells()), m_view(&view) {
    view.setTakesTyping(true);
    connect(&view, &FlexGridView::cellDoubleClicked, this, [this] { doubleClicked.emit(); });
    connect(&view, &FlexGridView::keyTyped, this, &QtEditableGrid::takeTyped);
    connect(&view, &FlexGridView::focusTaken, this, [this] { gotFocus.emit(); });
    connect(&view, &FlexGridView::cellsMoved, this, [this] { scrolled.emit(); });
    connect(&view, &FlexGridView::composed, this, [this](QInputMethodEvent* event) { passComposition(*event); });
}

void QtEditableGrid::takeTyped(const QString& text) {
    keyPressed.emit(text.toStdString());
    if (!m_box || !m_box->isVisible()) return;
    // The clipboard's keys open the box like every control character, and mean its whole text.
    if (text == QLatin1Char(controlC)) m_box->copy();
    if (text == QLatin1Char(controlV)) m_box->paste();
    if (text == QLatin1Char(controlX)) m_box->cut();
}

std::unique_ptr<EditBox> QtEditableGrid::makeEditBox(EditBoxEvents& events) {
    watchWindow();
    auto* box = new CellEditBox(events, m_view->window());
    box->setObjectName(freeName());
    m_box = box;
    return std::make_unique<Box>(*this, *box);
}

QString QtEditableGrid::freeName() const {
    QString name = QStringLiteral("tbFgEdit1");
    while (m_view->window()->findChild<QWidget*>(name)) name += QLatin1Char('1');
    return name;
}

void QtEditableGrid::watchWindow() {
    QWidget* window = m_view->window();
    if (m_watchedWindow == window) return;
    m_watchedWindow = window;
    window->installEventFilter(this);
    // The grid moves on its window when anything between the two moves.
    for (QWidget* part = m_view; part != window; part = part->parentWidget()) part->installEventFilter(this);
    if (m_box) m_box->setParent(window);
}

bool QtEditableGrid::eventFilter(QObject* watched, QEvent* event) {
    const bool fromWindow = watched == m_watchedWindow;
    switch (event->type()) {
        case QEvent::Close:
            if (fromWindow) windowClosing.emit();
            break;
        case QEvent::Hide:
            if (fromWindow && !event->spontaneous()) windowClosing.emit();  // a minimized window only rests
            break;
        case QEvent::Move:
            if (!fromWindow) scrolled.emit();
            break;
        default: break;
    }
    return false;
}

void QtEditableGrid::giveFocus() {
    if (m_view) m_view->setFocus(Qt::OtherFocusReason);
}

bool QtEditableGrid::isCurrentInSight() const {
    return m_view && m_view->isRowVisible(m_cells.Row()) && m_view->isColVisible(m_cells.Col());
}

void QtEditableGrid::bringCurrentIntoSight() {
    if (m_view) m_view->scrollToCurrent();
}

void QtEditableGrid::showHint(const std::string& utf8) {
    if (!m_view) return;
    const QRect cell = m_view->cellGeometry(m_cells.Row(), m_cells.Col());
    const QString text = QString::fromStdString(utf8);
    QToolTip::showText(m_view->mapToGlobal(cell.bottomLeft()), Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal),
                       m_view, {}, hintMs);
    if (m_box) m_box->setAccessibleDescription(text);
}

void QtEditableGrid::takeTabStops() {
    m_savedTabStops.clear();
    for (QWidget* control : m_view->window()->findChildren<QWidget*>()) {
        const Qt::FocusPolicy policy = control->focusPolicy();
        if (!(policy & Qt::TabFocus)) continue;
        m_savedTabStops.emplace_back(control, policy);
        control->setFocusPolicy(static_cast<Qt::FocusPolicy>(policy & ~Qt::TabFocus));
    }
}

void QtEditableGrid::restoreTabStops() {
    for (const auto& [control, policy] : std::exchange(m_savedTabStops, {})) {
        if (control) control->setFocusPolicy(policy);
    }
}

void QtEditableGrid::passComposition(QInputMethodEvent& event) {
    // The grid stays the input method's partner until the composition is over; the box shows it meanwhile.
    if (!std::exchange(m_composing, true)) doubleClicked.emit();  // opens with the cell's text, which is replaced
    if (m_box && m_box->isVisible()) QCoreApplication::sendEvent(m_box, &event);
    if (event.preeditString().isEmpty() || !m_box || !m_box->isVisible()) {
        endComposition(!event.commitString().isEmpty());
    }
}

void QtEditableGrid::endComposition(bool taken) {
    m_composing = false;
    if (!m_box || !m_box->isVisible()) return;
    m_box->setFocus(Qt::OtherFocusReason);
    if (taken) return;
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QCoreApplication::sendEvent(m_box, &escape);
}

}  // namespace korvex
