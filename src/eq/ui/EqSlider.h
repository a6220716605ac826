#pragma once

#include <QSlider>

class QPainter;
class QMouseEvent;
class QStyleOptionSlider;

namespace korvex {

struct EqItem;

/// One slider of the equalizer, the highest value at the top. A gain has a line at 0 dB, so that the three gains side
/// by side show the curve that is heard; a double click or the key 0 brings it there.
class EqSlider : public QSlider {
    Q_OBJECT

public:
    explicit EqSlider(const EqItem& item);
    /// Where the middle of the handle is for a value.
    int yOf(int value) const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void drawFromZero(QPainter& painter);

    bool m_isGain;
};

}  // namespace korvex
