#pragma once

#include <QWidget>

namespace korvex {

class EqSlider;
struct EqItem;

/// The scale beside a slider: a line for each step, and words at some of them.
class EqScale : public QWidget {
    Q_OBJECT

public:
    EqScale(const EqItem& item, const EqSlider& slider);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const EqItem& m_item;
    const EqSlider& m_slider;
};

}  // namespace korvex
