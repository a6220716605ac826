#pragma once

#include <QHeaderView>
#include <QLabel>

namespace korvex {

/// The labels of one edge of a grid. Columns are narrow, so titles stand close to the borders and wrap into a second
/// line where that helps.
class FlexGridHeader : public QHeaderView {
    Q_OBJECT

public:
    FlexGridHeader(Qt::Orientation orientation, QWidget* parent);

    /// How high a row of titles must be to show them all, two lines at most.
    int heightForTitles() const;

protected:
    void paintSection(QPainter* painter, const QRect& rect, int section) const override;
};

/// The label in the corner between the label row and the label column.
class FlexGridCorner : public QLabel {
    Q_OBJECT

public:
    using QLabel::QLabel;

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace korvex
