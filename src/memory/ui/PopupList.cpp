#include "memory/ui/PopupList.h"

#include <QKeyEvent>
#include <algorithm>

namespace korvex {

namespace {

constexpr int fromPointer = 4;

/// Behind `at` where there is room for it, else before it.
int besideOf(int at, int length, int first, int last) {
    if (at + fromPointer + length <= last) return at + fromPointer;
    return std::max(first, at - fromPointer - length);
}

}  // namespace

PopupList::PopupList(const QStringList& entries, QWidget* parent) : QListWidget(parent) {
    addItems(entries);
    setFixedSize(sizeHintForColumn(0) + 24, count() * sizeHintForRow(0) + 2 * frameWidth());
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setMouseTracking(true);
    hide();
    connect(this, &QListWidget::itemEntered, this, [this](QListWidgetItem* item) { setCurrentItem(item); });
    connect(this, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) { choose(row(item)); });
}

void PopupList::openBeside(const QPoint& at, const QRect& room) {
    move(besideOf(at.x(), width(), room.left(), room.right()), besideOf(at.y(), height(), room.top(), room.bottom()));
    setCurrentRow(-1);
    show();
    raise();
    setFocus();
}

/// The base class makes the first entry current: Enter would take what nobody has chosen.
void PopupList::focusInEvent(QFocusEvent* event) {
    const int before = currentRow();
    QListWidget::focusInEvent(event);
    setCurrentRow(before);
}

void PopupList::focusOutEvent(QFocusEvent* event) {
    QListWidget::focusOutEvent(event);
    hide();
}

void PopupList::hideEvent(QHideEvent* event) {
    QListWidget::hideEvent(event);
    Q_EMIT closed();
}

void PopupList::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Escape: return hide();
        case Qt::Key_Return:
        case Qt::Key_Enter: return choose(currentRow());
        default: return QListWidget::keyPressEvent(event);
    }
}

void PopupList::choose(int entry) {
    hide();
    if (entry >= 0) Q_EMIT entryChosen(entry);
}

}  // namespace korvex
