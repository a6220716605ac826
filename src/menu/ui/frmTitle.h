#pragma once

#include <QDialog>

class QLineEdit;

namespace korvex {

class MenuManager;

/// "Edit Title": one line, and the button that writes it over the selected column.
class frmTitle : public QDialog {
    Q_OBJECT

public:
    frmTitle(MenuManager& logic, QWidget* owner);

    void ask(const QString& title);

private:
    QLineEdit* commandSent;
};

}  // namespace korvex
