#pragma once

#include <QLineEdit>
#include <optional>
#include <string>

#include "gridedit/EditBox.h"

namespace korvex {

/// The text box that is laid over a cell. It forwards its events to an editor for as long as it has one; without it is
/// a widget that waits to be deleted.
class CellEditBox : public QLineEdit {
    Q_OBJECT

public:
    CellEditBox(EditBoxEvents& events, QWidget* window);

    /// The editor is gone: hides the box, gives its name free and deletes it when its events are over.
    void release();

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    class Refusals;

    bool forwardKeyDown(const QKeyEvent& event);
    QString asTyped(const QString& text) const;
    void tellRefusal();

    EditBoxEvents* m_events;
    std::optional<std::string> m_refusal;  // why the last input was not taken
};

}  // namespace korvex
