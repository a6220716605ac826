#include "platform/qtwidgets/ChoiceBox.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QKeyEvent>
#include <QScrollBar>
#include <utility>

namespace korvex {

ChoiceBox::ChoiceBox(const QStringList& choices, QWidget* parent) : QComboBox(parent) {
    addItems(choices);
    // Cells are narrow.
    view()->setMinimumWidth(view()->sizeHintForColumn(0) + view()->verticalScrollBar()->sizeHint().width() + 8);
}

void ChoiceBox::show(const QString& text) {
    const int same = findText(text);
    setCurrentIndex(same >= 0 ? same : findText(text + QLatin1Char(' '), Qt::MatchStartsWith | Qt::MatchCaseSensitive));
}

/// With its code or its label; -1 where none does.
int ChoiceBox::choiceThatBegins(const QString& typed) const {
    const int byCode = findText(typed, Qt::MatchStartsWith);
    for (int choice = 0; byCode < 0 && choice < count(); ++choice) {
        const QString text = itemText(choice);
        const QString label = text.mid(text.indexOf(QLatin1Char(' ')) + 1);
        if (label.startsWith(typed, Qt::CaseInsensitive)) return choice;
    }
    return byCode;
}

void ChoiceBox::keyPressEvent(QKeyEvent* event) {
    const QString text = event->text();
    const bool isTyped = !text.isEmpty() && text.at(0).isPrint() && !text.at(0).isSpace();
    if (!isTyped || event->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) {
        return QComboBox::keyPressEvent(event);
    }
    const bool goesOn = m_sinceTyped.isValid() && m_sinceTyped.elapsed() < QApplication::keyboardInputInterval();
    m_typed = goesOn ? m_typed + text : text;
    m_sinceTyped.start();
    if (const int choice = choiceThatBegins(m_typed); choice >= 0) setCurrentIndex(choice);
}

void ChoiceBox::showPopup() {
    m_open = true;
    QComboBox::showPopup();
}

void ChoiceBox::hidePopup() {
    QComboBox::hidePopup();
    // Behind the choice that it may be closed for.
    if (std::exchange(m_open, false)) QMetaObject::invokeMethod(this, &ChoiceBox::chosenInList, Qt::QueuedConnection);
}

}  // namespace korvex
