#include "platform/qtwidgets/ChoiceBox.h"

#include <QAbstractItemView>
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
