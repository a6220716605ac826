#pragma once

#include <QMainWindow>

namespace korvex {

/// "Information": what the radio must be set to before it takes message texts.
class frmInfo : public QMainWindow {
    Q_OBJECT

public:
    explicit frmInfo(QWidget* keyerWindow);
};

}  // namespace korvex
