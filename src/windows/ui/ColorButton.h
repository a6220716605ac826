#pragma once

#include <QPushButton>

namespace korvex {

/// A button whose colour means something: it is painted as it was asked for, while styles tone a button's colour down
/// or ignore it. Enter presses it as well as the blank.
class ColorButton : public QPushButton {
    Q_OBJECT

public:
    using QPushButton::QPushButton;

    void setBackColor(int bbggrr);
    /// A sign at its left end, for those who cannot tell its colour from the others'.
    void setMarked(bool marked);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    bool m_marked = false;
};

}  // namespace korvex
