#pragma once

#include <QListWidget>

namespace korvex {

/// A list of entries that opens beside a point of its window with nothing chosen, and goes when one is chosen or the
/// keyboard goes elsewhere.
class PopupList : public QListWidget {
    Q_OBJECT

public:
    PopupList(const QStringList& entries, QWidget* parent);

    /// Beside `at`, so that the pointer there is over no entry, and within `room`; both in the parent's coordinates.
    void openBeside(const QPoint& at, const QRect& room);

Q_SIGNALS:
    void entryChosen(int entry);
    void closed();

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void choose(int entry);
};

}  // namespace korvex
