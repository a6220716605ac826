#pragma once

#include <QWidget>
#include <memory>

#include "platform/ProgressWindow.h"

class QProgressBar;

namespace korvex {

/// The progress window. It comes without taking the keyboard from the window that the user works in, and stops nobody.
class frmProgr : public QWidget {
    Q_OBJECT

public:
    explicit frmProgr(ProgressWindow& progress);

protected:
    /// Out of sight is all that the close box means; what runs goes on.
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void showValue();

    ProgressWindow& m_progress;
    QProgressBar* ProgressBar1;
    Connections m_connections;
};

/// Makes the progress window when it is needed for the first time.
class ProgressView {
public:
    explicit ProgressView(ProgressWindow& progress);
    ~ProgressView();

private:
    std::unique_ptr<frmProgr> m_window;
    Connection m_shown;
};

}  // namespace korvex
