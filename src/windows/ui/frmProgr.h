#pragma once

#include <QWidget>
#include <memory>

#include "platform/ProgressWindow.h"

class QLabel;
class QProgressBar;
class QPushButton;

namespace korvex {

/// The progress window. It comes without taking the keyboard from the window that the user works in, stops nobody, and
/// stands where it hides nothing of that window, if the screen has room. Its button, its close box and Escape, here or
/// in any other window that has no use for the key, cancel what runs.
class frmProgr : public QWidget {
    Q_OBJECT

public:
    explicit frmProgr(ProgressWindow& progress);

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void build();
    void showCaption(const std::string& caption);
    void showValue();
    void placeBeside(const QWidget& inUse);

    ProgressWindow& m_progress;
    QProgressBar* ProgressBar1;
    QLabel* m_detail;
    QPushButton* m_cancel;
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
