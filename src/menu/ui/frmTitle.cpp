#include "menu/ui/frmTitle.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>

#include "menu/MenuManager.h"

namespace korvex {

frmTitle::frmTitle(MenuManager& logic, QWidget* owner) : QDialog(owner), commandSent(new QLineEdit(this)) {
    setObjectName(QStringLiteral("frmTitle"));
    setWindowTitle(QStringLiteral("Edit Title"));
    commandSent->setObjectName(QStringLiteral("Text1"));
    commandSent->setAccessibleName(QStringLiteral("Title of the settings column"));
    auto* write = new QPushButton(QStringLiteral("Write Title"), this);
    write->setObjectName(QStringLiteral("Command1"));
    auto* row = new QHBoxLayout(this);
    row->addWidget(commandSent, 1);
    row->addWidget(write);
    connect(write, &QPushButton::clicked, this, [this, &logic] {
        logic.Command1_Click(commandSent->text().toStdString());
        hide();
    });
}

void frmTitle::ask(const QString& title) {
    commandSent->setText(title);
    commandSent->selectAll();
    commandSent->setFocus();
    open();  // the selected column must stay the same meanwhile
}

}  // namespace korvex
