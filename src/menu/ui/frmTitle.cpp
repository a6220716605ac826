#include "menu/ui/frmTitle.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>

#include "menu/MenuManager.h"

namespace korvex {

frmTitle::frmTitle(MenuManager& logic, QWidget* owner) : QDialog(owner), Text1(new QLineEdit(this)) {
    setObjectName(QStringLiteral("frmTitle"));
    setWindowTitle(QStringLiteral("Edit Title"));
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->setAccessibleName(QStringLiteral("Title of the settings column"));
    auto* write = new QPushButton(QStringLiteral("Write Title"), this);
    write->setObjectName(QStringLiteral("Command1"));
    auto* row = new QHBoxLayout(this);
    row->addWidget(Text1, 1);
    row->addWidget(write);
    connect(write, &QPushButton::clicked, this, [this, &logic] {
        logic.Command1_Click(Text1->text().toStdString());
        hide();
    });
}

void frmTitle::ask(const QString& title) {
    Text1->setText(title);
    Text1->selectAll();
    Text1->setFocus();
    open();  // the selected column must stay the same meanwhile
}

}  // namespace korvex
