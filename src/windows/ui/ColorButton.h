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

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace korvex
