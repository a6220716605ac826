#pragma once

#include <QLabel>

namespace korvex {

/// A label of one line. Where it has too little room it ends in "...", and its tool tip shows the whole text. `text()`
/// is always the whole one.
class ElidedLabel : public QLabel {
    Q_OBJECT

public:
    explicit ElidedLabel(QWidget* parent = nullptr, Qt::TextElideMode mode = Qt::ElideRight);
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

private:
    QString shown() const;

    Qt::TextElideMode m_mode;
};

}  // namespace korvex
