#include "memory/ui/FindBar.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace korvex {

FindBar::FindBar(QWidget* parent) : QWidget(parent), m_text(new QLineEdit) {
    setObjectName(QStringLiteral("findBar"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(4, 2, 4, 2);
    auto* label = new QLabel(QStringLiteral("&Find"));
    label->setObjectName(QStringLiteral("findLabel"));
    label->setBuddy(m_text);
    m_text->setObjectName(QStringLiteral("findText"));
    m_text->setAccessibleName(QStringLiteral("Find in the memory list"));
    m_text->setPlaceholderText(QStringLiteral("frequency, mode, tone, remark ..."));
    QPalette palette = m_text->palette();  // dark palettes may bring a dark hint
    QColor pale = palette.color(QPalette::Text);
    pale.setAlpha(150);
    palette.setColor(QPalette::PlaceholderText, pale);
    m_text->setPalette(palette);
    row->addWidget(label);
    row->addWidget(m_text, 1);
    const auto addButton = [&](const char* name, const QString& caption, const QString& meaning) {
        auto* button = new QPushButton(caption);
        button->setObjectName(QLatin1String(name));
        button->setAccessibleName(meaning);
        row->addWidget(button);
        return button;
    };
    auto* back = addButton("findPrevious", QStringLiteral("&Previous"), QStringLiteral("Find the previous row"));
    auto* next = addButton("findNext", QStringLiteral("&Next"), QStringLiteral("Find the next row"));
    auto* close = addButton("findClose", QStringLiteral("Close"), QStringLiteral("Close the find line"));
    connect(back, &QPushButton::clicked, this, [this] { findAgain(false); });
    connect(next, &QPushButton::clicked, this, [this] { findAgain(true); });
    connect(close, &QPushButton::clicked, this, [this] {
        hide();
        Q_EMIT closed();
    });
    hide();
}

void FindBar::open() {
    show();
    m_text->setFocus();
    m_text->selectAll();
}

void FindBar::findAgain(bool forward) {
    if (m_text->text().isEmpty()) return open();
    Q_EMIT wanted(m_text->text(), forward);
}

void FindBar::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        hide();
        Q_EMIT closed();
    } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        findAgain(!(event->modifiers() & Qt::ShiftModifier));
    } else {
        QWidget::keyPressEvent(event);
    }
}

}  // namespace korvex
