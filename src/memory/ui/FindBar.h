#pragma once

#include <QWidget>

class QLineEdit;

namespace korvex {

/// A line in which to type what is looked for. Enter and F3 go on, with Shift back; Escape closes it.
class FindBar : public QWidget {
    Q_OBJECT

public:
    explicit FindBar(QWidget* parent = nullptr);

    void open();
    /// Looks on, or opens the bar where nothing has been typed.
    void findAgain(bool forward);

Q_SIGNALS:
    void wanted(const QString& text, bool forward);
    void closed();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QLineEdit* m_text;
};

}  // namespace korvex
