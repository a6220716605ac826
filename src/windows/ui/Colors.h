#pragma once

#include <QColor>

class QWidget;

namespace korvex {

/// The logic writes colours as 0xBBGGRR.
QColor colorFrom(int bbggrr);

/// Black or white, whichever can be read on `background`.
QColor readableOn(const QColor& background);
/// The same for what is disabled: paler, still to be read.
QColor palerOn(const QColor& background);

/// Gives a control a background of its own, and text that can be read on it whatever the desktop's theme.
void setBackColor(QWidget& control, int bbggrr);

}  // namespace korvex
