#include "app/ui/frmProgr.h"

#include <QApplication>
#include <QCloseEvent>
#include <QProgressBar>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>

#include "app/WindowGeometry.h"

namespace korvex {

frmProgr::frmProgr(ProgressWindow& progress)
    : QWidget(nullptr, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint |
                           Qt::WindowDoesNotAcceptFocus),
      m_progress(progress),
      ProgressBar1(new QProgressBar(this)) {
    setObjectName(QStringLiteral("frmProgr"));
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_QuitOnClose, false);
    resize(pixelsFromTwips(4575), pixelsFromTwips(1305));
    ProgressBar1->setObjectName(QStringLiteral("ProgressBar1"));
    ProgressBar1->setAccessibleName(QStringLiteral("Progress"));
    ProgressBar1->setTextVisible(false);
    ProgressBar1->setMinimumHeight(26);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(14, 14, 14, 14);
    column->addWidget(ProgressBar1);

    m_connections += m_progress.caption.bind(
        [this](const std::string& caption) { setWindowTitle(QString::fromStdString(caption)); });
    m_connections += m_progress.maximum.bind([this](int) { showValue(); });
    m_connections += m_progress.value.bind([this](int) { showValue(); });
    m_connections += m_progress.visible.bind([this](bool visible) { setVisible(visible); });
}

void frmProgr::showValue() {
    // A bar leaves a value beyond its end alone; counters may run past the maximum that they were given.
    ProgressBar1->setRange(0, std::max(m_progress.maximum.get(), 1));
    ProgressBar1->setValue(std::clamp(m_progress.value.get(), 0, ProgressBar1->maximum()));
}

void frmProgr::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    const QWidget* inUse = QApplication::activeWindow();
    if (!inUse || inUse == this) return;
    windowHandle()->setTransientParent(inUse->windowHandle());
    move(inUse->geometry().center() - rect().center());
}

void frmProgr::closeEvent(QCloseEvent* event) {
    m_progress.hide();
    event->accept();  // a window that refuses keeps the whole program from ending
}

ProgressView::ProgressView(ProgressWindow& progress) {
    m_shown = progress.visible.changed.connect([this, &progress](bool visible) {
        if (visible && !m_window) m_window = std::make_unique<frmProgr>(progress);
    });
}

ProgressView::~ProgressView() = default;

}  // namespace korvex
