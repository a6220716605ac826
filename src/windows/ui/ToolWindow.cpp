#include "windows/ui/ToolWindow.h"

#include <QCloseEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QMenuBar>
#include <QMimeData>
#include <QScreen>
#include <QToolButton>
#include <QUrl>
#include <algorithm>
#include <utility>

#include "windows/ui/Mnemonics.h"

namespace korvex {

namespace {

std::vector<WindowPlace> screensInTwips() {
    std::vector<WindowPlace> screens;
    const auto add = [&](const QScreen* screen) {
        const QRect area = screen->availableGeometry();
        screens.push_back({twipsFromPixels(area.left()), twipsFromPixels(area.top()), twipsFromPixels(area.width()),
                           twipsFromPixels(area.height())});
    };
    const QScreen* primary = QGuiApplication::primaryScreen();
    if (primary) add(primary);
    for (const QScreen* screen : QGuiApplication::screens()) {
        if (screen != primary) add(screen);
    }
    return screens;
}

}  // namespace

ToolWindow::ToolWindow(const WindowGeometry& geometry, SettingsStore& settings)
    : m_geometry(geometry), m_settings(settings) {
    setAcceptDrops(true);
}

void ToolWindow::loadPlace() {
    m_wasPlaced = m_geometry.isRemembered(m_settings);
    goTo(broughtIntoSight(m_geometry.load(m_settings), screensInTwips()));
}

void ToolWindow::goTo(const WindowPlace& place) {
    m_loaded = place;
    move(pixels(place.left), pixels(place.top));
    resize(pixels(place.width), pixels(place.height));
}

void ToolWindow::growTo(int wanted) {
    constexpr int frame = 16;
    resize(std::max(width(), std::min(wanted, screen()->availableGeometry().width() - frame)), height());
}

/// Only now is it known how large a window is that goes by what is in it.
void ToolWindow::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    if (event->spontaneous() || std::exchange(m_fitted, true)) return;
    if (auto* bar = qobject_cast<QMenuBar*>(menuWidget())) giveMnemonics(*bar);
    for (auto* more : findChildren<QToolButton*>(QStringLiteral("qt_toolbar_ext_button"))) {
        more->setAccessibleName(QStringLiteral("More buttons"));
    }
    const auto bring = m_wasPlaced ? broughtIntoSight : broughtWhollyIntoSight;
    goTo(bring(presentPlace(), screensInTwips()));
}

void ToolWindow::storePlace() {
    if (!isMinimized()) m_geometry.save(m_settings, presentPlace());
}

void ToolWindow::showRestored() {
    setWindowState(windowState() & ~(Qt::WindowMinimized | Qt::WindowMaximized | Qt::WindowFullScreen));
    show();
    raise();
    activateWindow();
}

void ToolWindow::showBehind() {
    if (isVisible()) return;
    setAttribute(Qt::WA_ShowWithoutActivating);
    showNormal();
    setAttribute(Qt::WA_ShowWithoutActivating, false);
}

WindowPlace ToolWindow::presentPlace() const {
    // move() and pos() speak of the frame, resize() and size() of what is inside it: so a window does not wander.
    QPoint position = pos();
    QSize inside = size();
    if (isMaximized() || isFullScreen()) {
        position = normalGeometry().topLeft() - (geometry().topLeft() - frameGeometry().topLeft());
        inside = normalGeometry().size();
    }
    // What was not touched keeps its twips: not every figure is a whole number of pixels.
    const auto kept = [](int now, int loaded) { return now == pixels(loaded) ? loaded : twips(now); };
    return {kept(position.x(), m_loaded.left), kept(position.y(), m_loaded.top), kept(inside.width(), m_loaded.width),
            kept(inside.height(), m_loaded.height)};
}

bool ToolWindow::closeBox() {
    storePlace();
    return true;
}

void ToolWindow::dragEnterEvent(QDragEnterEvent* event) {
    const auto urls = event->mimeData()->urls();
    const bool hasFile = std::any_of(urls.begin(), urls.end(), [](const QUrl& url) { return url.isLocalFile(); });
    event->setAccepted(hasFile);
}

/// Whoever dragged it may not wait for a box that is answered first.
void ToolWindow::dropEvent(QDropEvent* event) {
    std::vector<std::string> files;
    for (const QUrl& url : event->mimeData()->urls()) {
        if (url.isLocalFile()) files.push_back(url.toLocalFile().toStdString());
    }
    event->acceptProposedAction();
    QMetaObject::invokeMethod(
        this, [this, files] { filesDropped.emit(files); }, Qt::QueuedConnection);
}

void ToolWindow::closeEvent(QCloseEvent* event) {
    event->setAccepted(closeBox());
}

}  // namespace korvex
