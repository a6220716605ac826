#pragma once

#include <QSlider>

class QPainter;
class QStyleOptionSlider;

namespace korvex {

struct EqItem;

/// One slider of the equalizer, the highest value at the top. A gain has a line at 0 dB, so that the three gains side
/// by side show the curve that is heard.
class EqSlider : public QSlider {
    Q_OBJECT

public:
    explicit EqSlider(const EqItem& item);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void drawFromZero(QPainter& painter, const QStyleOptionSlider& option);

    bool m_isGain;
};

}  // namespace korvex
