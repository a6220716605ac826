#pragma once

#include <QString>
#include <QWidget>
#include <optional>
#include <vector>

#include "eq/EqCurve.h"

namespace korvex {

/// Draws the response of the set that is shown and, dimmed and dashed behind it, of the other one. Frequencies in Hz to
/// the right, levels in dB upwards.
class EqCurveView : public QWidget {
    Q_OBJECT

public:
    struct Set {
        std::optional<EqValues> values;  ///< nothing while not all nine are known: no curve
        QString name;
    };

    explicit EqCurveView(QWidget* parent = nullptr);
    void show(const Set& shown, const Set& other);
    using QWidget::show;

    QSize minimumSizeHint() const override;
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    using Levels = std::vector<double>;
    Levels levelsOf(const std::optional<EqValues>& values) const;
    QRect plot() const;
    double yOf(double level) const;
    void drawGrid(QPainter& painter) const;
    void drawLevels(QPainter& painter, const Levels& levels, const QPen& pen) const;
    void drawNames(QPainter& painter, const QPen& shown, const QPen& other) const;

    Set m_shown;
    Set m_other;
    eq::LevelAxis m_axis;
};

}  // namespace korvex
