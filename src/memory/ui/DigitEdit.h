#pragma once

#include <QLineEdit>

#include "base/Signal.h"

namespace korvex {

class DigitBox;

/// Shows a DigitBox and hands it everything that a user does to a line edit: keys, paste, drop, input methods. The text
/// of the edit is never changed but by the box.
class DigitEdit : public QLineEdit {
    Q_OBJECT

public:
    explicit DigitEdit(DigitBox& box, QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    bool runCommand(const QKeyEvent& event);
    void cutAll();
    void take(const QString& text);
    void showText();

    DigitBox& m_box;
    Connection m_shown;
};

}  // namespace korvex
