#include "windows/ui/frmProgr.h"

#include <QAccessibleWidget>
#include <QApplication>
#include <QCloseEvent>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>
#include <array>

#include "windows/WindowGeometry.h"
#include "windows/ui/PanelLabel.h"

namespace korvex {

namespace {

constexpr int gap = 8;
constexpr int titleButtons = 120;  // what a frame's icon and buttons take of its title, and a little more

bool isPlainWindow(const QObject* object) {
    const auto* widget = qobject_cast<const QWidget*>(object);
    return widget && widget->isWindow() && !widget->isModal() && widget->windowType() != Qt::Popup;
}

/// A window that is no QDialog has no role of its own for assistive programs.
QAccessibleInterface* accessibleOf(const QString&, QObject* object) {
    auto* window = qobject_cast<frmProgr*>(object);
    return window ? new QAccessibleWidget(window, QAccessible::Dialog) : nullptr;
}

}  // namespace

frmProgr::frmProgr(ProgressWindow& progress)
    : QWidget(nullptr, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint),
      m_progress(progress),
      ProgressBar1(new QProgressBar(this)),
      m_detail(
          new PanelLabel(progress.detail, QStringLiteral("lblDetail"), QStringLiteral("What is being done"), this)),
      m_cancel(new QPushButton(QStringLiteral("Cancel"), this)) {
    setObjectName(QStringLiteral("frmProgr"));
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_QuitOnClose, false);
    resize(pixelsFromTwips(4575), pixelsFromTwips(1305));
    build();
    connect(
        m_cancel, &QPushButton::clicked, this, [this] { m_progress.cancelled.emit(); }, Qt::QueuedConnection);

    m_connections += m_progress.caption.bind([this](const std::string& caption) { showCaption(caption); });
    m_connections += m_progress.maximum.bind([this](int) { showValue(); });
    m_connections += m_progress.value.bind([this](int) { showValue(); });
    m_connections += m_progress.cancellable.bind([this](bool cancellable) { m_cancel->setEnabled(cancellable); });
    m_connections += m_progress.visible.bind([this](bool visible) { setVisible(visible); });
}

void frmProgr::build() {
    ProgressBar1->setObjectName(QStringLiteral("ProgressBar1"));
    ProgressBar1->setAccessibleName(QStringLiteral("Progress"));
    ProgressBar1->setTextVisible(false);
    ProgressBar1->setMinimumHeight(26);
    m_cancel->setObjectName(QStringLiteral("cmdCancel"));
    m_cancel->setAccessibleName(QStringLiteral("Cancel the transfer"));
    m_cancel->setAutoDefault(false);
    auto* row = new QHBoxLayout;
    row->addWidget(m_detail, 1);
    row->addWidget(m_cancel);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(14, 14, 14, 14);
    column->addWidget(ProgressBar1);
    column->addLayout(row);
}

/// The title is the only place of the caption: it must not be cut.
void frmProgr::showCaption(const std::string& caption) {
    const QString title = QString::fromStdString(caption);
    setWindowTitle(title);
    QFont bold = font();
    bold.setBold(true);
    setMinimumWidth(std::max(pixelsFromTwips(4575), QFontMetrics(bold).horizontalAdvance(title) + titleButtons));
}

void frmProgr::showValue() {
    // A bar leaves a value beyond its end alone; counters may run past the maximum that they were given.
    ProgressBar1->setRange(0, std::max(m_progress.maximum.get(), 1));
    ProgressBar1->setValue(std::clamp(m_progress.value.get(), 0, ProgressBar1->maximum()));
}

/// Below, above, right or left of the window in use, wherever it fits whole; else in the screen's corner.
void frmProgr::placeBeside(const QWidget& inUse) {
    const QRect screen = inUse.screen()->availableGeometry();
    const QRect there = inUse.frameGeometry();
    // Until the window manager has framed this window, a place is that of what stands in the frame.
    const int title = inUse.geometry().top() - there.top();
    const QSize frame = size() + QSize(gap, title + gap);
    const int middle = there.center().x() - width() / 2;
    const std::array<QPoint, 4> places = {
        QPoint(middle, there.bottom() + gap), QPoint(middle, there.top() - frame.height()),
        QPoint(there.right() + gap, there.top()), QPoint(there.left() - frame.width(), there.top())};
    for (const QPoint& place : places) {
        if (screen.contains(QRect(place, frame))) return move(place + QPoint(0, title));
    }
    move(screen.bottomRight() - QPoint(frame.width(), frame.height()));
}

void frmProgr::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    qApp->installEventFilter(this);
    const QWidget* inUse = QApplication::activeWindow();
    if (!inUse || inUse == this) return;
    windowHandle()->setTransientParent(inUse->windowHandle());
    adjustSize();
    placeBeside(*inUse);
}

void frmProgr::hideEvent(QHideEvent* event) {
    qApp->removeEventFilter(this);
    QWidget::hideEvent(event);
}

/// Escape reaches a window only when nothing in it, such as an open edit box, has taken it.
bool frmProgr::eventFilter(QObject* receiver, QEvent* event) {
    if (event->type() != QEvent::KeyPress || !m_progress.cancellable || !isPlainWindow(receiver)) return false;
    if (static_cast<QKeyEvent*>(event)->key() != Qt::Key_Escape) return false;
    m_progress.cancelled.emit();
    return true;
}

void frmProgr::closeEvent(QCloseEvent* event) {
    event->accept();  // a window that refuses keeps the whole program from ending
    if (m_progress.cancellable) m_progress.cancelled.emit();
    m_progress.hide();
}

ProgressView::ProgressView(ProgressWindow& progress) {
    m_shown = progress.visible.changed.connect([this, &progress](bool visible) {
        if (visible && !m_window) {
            QAccessible::installFactory(accessibleOf);
            m_window = std::make_unique<frmProgr>(progress);
        }
    });
}

ProgressView::~ProgressView() = default;

}  // namespace korvex
