#include "platform/qtwidgets/FlexGridDelegate.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QTextDocument>
#include <QToolTip>
#include <algorithm>

#include "platform/qtwidgets/ChoiceBox.h"
#include "platform/qtwidgets/FlexGridModel.h"

namespace korvex {

namespace {

/// More than any cell can show: measuring a whole line out of a damaged file would stop the window for seconds.
constexpr qsizetype longestMeasured = 2000;

void drawFrame(QPainter& painter, const QStyleOptionViewItem& option) {
    const bool focused = option.widget && option.widget->hasFocus();
    const int width = focused ? 2 : 1;
    QColor colour = option.palette.color(focused ? QPalette::Highlight : QPalette::Text);
    if (!focused) colour.setAlpha(140);
    painter.setPen(QPen(colour, width, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.setBrush(Qt::NoBrush);
    const QRectF inside = QRectF(option.rect).adjusted(width / 2.0, width / 2.0, -width / 2.0, -width / 2.0);
    painter.drawRect(inside);
}

/// The view has painted a chosen cell already, so that nothing of its own colour was to be seen.
void drawBackground(QPainter& painter, const QStyleOptionViewItem& option, const QVariant& background) {
    constexpr int transparency = 80;
    const auto* view = qobject_cast<const QAbstractItemView*>(option.widget);
    const bool choosing = view && view->selectionMode() != QAbstractItemView::NoSelection;
    const bool chosen = choosing && (option.state & QStyle::State_Selected);
    if (chosen) painter.fillRect(option.rect, option.palette.base());
    if (background.isValid()) painter.fillRect(option.rect, background.value<QBrush>());
    if (!chosen) return;
    QColor colour = option.palette.color(QPalette::Highlight);
    colour.setAlpha(transparency);
    painter.fillRect(option.rect, colour);
}

void drawGroupLine(QPainter& painter, const QStyleOptionViewItem& option) {
    QColor colour = option.palette.color(QPalette::Text);
    colour.setAlpha(160);
    painter.fillRect(QRect(option.rect.left(), option.rect.top(), 1, option.rect.height()), colour);
}

QString textIn(const QWidget& editor) {
    const auto* choice = qobject_cast<const QComboBox*>(&editor);
    const auto* line = qobject_cast<const QLineEdit*>(&editor);
    return choice ? choice->currentText() : line ? line->text() : QString();
}

/// What the cell is called: "Freq, 7".
QString nameOf(const QModelIndex& index) {
    const auto* model = index.model();
    return model->headerData(index.column(), Qt::Horizontal).toString().trimmed() + QStringLiteral(", ") +
           model->headerData(index.row(), Qt::Vertical).toString();
}

}  // namespace

void FlexGridDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    painter->save();
    const QVariant background = index.data(Qt::BackgroundRole);
    drawBackground(*painter, option, background);
    if (index.data(FlexGridModel::groupRole).toBool()) drawGroupLine(*painter, option);

    const QVariant ink = index.data(Qt::ForegroundRole);
    painter->setPen(ink.isValid() ? ink.value<QBrush>().color() : option.palette.color(QPalette::Text));
    painter->setFont(option.font);
    QRect textRect = option.rect.adjusted(margin, 0, -margin, 0);
    if (const QString sign = index.data(FlexGridModel::signRole).toString(); !sign.isEmpty()) {
        painter->drawText(textRect, Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine, sign);
        textRect.setRight(textRect.right() - option.fontMetrics.horizontalAdvance(sign) - margin);
    }
    const QString text = option.fontMetrics.elidedText(index.data().toString().left(longestMeasured), Qt::ElideRight,
                                                       textRect.width(), Qt::TextSingleLine);
    painter->drawText(textRect, index.data(Qt::TextAlignmentRole).toInt() | Qt::TextSingleLine, text);

    const auto* view = qobject_cast<const QAbstractItemView*>(option.widget);
    if (view && view->currentIndex() == index) drawFrame(*painter, option);
    painter->restore();
}

bool FlexGridDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                                 const QModelIndex& index) {
    if (event->type() != QEvent::ToolTip) return QStyledItemDelegate::helpEvent(event, view, option, index);
    const QString text = index.data().toString().left(longestMeasured);
    const QString meaning = index.data(Qt::ToolTipRole).toString();
    const bool isCut = view->fontMetrics().horizontalAdvance(text + index.data(FlexGridModel::signRole).toString()) >
                       option.rect.width() - 3 * margin;
    const QString told = isCut && !meaning.isEmpty() ? text + QLatin1Char('\n') + meaning : isCut ? text : meaning;
    QToolTip::showText(event->globalPos(), told.isEmpty() ? told : Qt::convertFromPlainText(told, Qt::WhiteSpaceNormal),
                       view);
    return true;
}

/// Beside the grid, not in it: the children of a table are its cells, and assistive programs would not find the editor.
QWidget* FlexGridDelegate::createEditor(QWidget* viewport, const QStyleOptionViewItem&,
                                        const QModelIndex& index) const {
    QWidget* grid = viewport->parentWidget();
    QWidget* parent = grid->parentWidget() ? grid->parentWidget() : viewport;
    const QStringList choices = index.data(FlexGridModel::choicesRole).toStringList();
    QWidget* editor = choices.isEmpty() ? new QLineEdit(parent) : makeChoice(parent, choices);
    editor->setObjectName(QStringLiteral("CellEditor"));
    editor->setAccessibleName(nameOf(index));
    editor->setProperty("cell", QVariant::fromValue(QPersistentModelIndex(index)));
    editor->setAutoFillBackground(true);
    return editor;
}

QWidget* FlexGridDelegate::makeChoice(QWidget* parent, const QStringList& choices) const {
    auto* combo = new ChoiceBox(choices, parent);
    connect(combo, &ChoiceBox::chosenInList, this, [this, combo] {
        auto* delegate = const_cast<FlexGridDelegate*>(this);
        Q_EMIT delegate->commitData(combo);
        Q_EMIT delegate->closeEditor(combo);
    });
    return combo;
}

void FlexGridDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                            const QModelIndex&) const {
    const auto* view = qobject_cast<const QAbstractItemView*>(option.widget);
    if (!view) return;
    QRect cell = option.rect & view->viewport()->rect();
    if (qobject_cast<const ChoiceBox*>(editor)) cell.setWidth(std::max(cell.width(), editor->sizeHint().width()));
    editor->setGeometry(QRect(view->viewport()->mapTo(editor->parentWidget(), cell.topLeft()), cell.size()));
}

void FlexGridDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
    const QString text = index.data(Qt::EditRole).toString();
    if (auto* choice = qobject_cast<ChoiceBox*>(editor)) {
        choice->show(text);
    } else if (auto* line = qobject_cast<QLineEdit*>(editor); line && !line->isModified()) {
        line->setText(text);
    }
}

void FlexGridDelegate::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const {
    const auto* choice = qobject_cast<const QComboBox*>(editor);
    if (choice && choice->currentIndex() < 0) return;  // a value that the list does not have stays
    const QString text = textIn(*editor);
    const QString why = qobject_cast<FlexGridModel*>(model)->whyRefused(index, text);
    if (text == index.data(Qt::EditRole).toString()) return;
    if (!model->setData(index, text)) Q_EMIT refused(why);
}

/// Enter and Tab let only go what can be taken.
bool FlexGridDelegate::eventFilter(QObject* watched, QEvent* event) {
    auto* line = qobject_cast<QLineEdit*>(watched);
    if (line && event->type() == QEvent::KeyPress) {
        const int key = static_cast<const QKeyEvent&>(*event).key();
        const bool ends = key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Tab || key == Qt::Key_Backtab;
        const auto cell = line->property("cell").value<QPersistentModelIndex>();
        const auto* model = qobject_cast<const FlexGridModel*>(cell.model());
        const bool changed = model && line->text() != cell.data(Qt::EditRole).toString();
        const QString why = ends && changed ? model->whyRefused(cell, line->text()) : QString();
        if (!why.isEmpty()) {
            QToolTip::showText(line->mapToGlobal(line->rect().bottomLeft()), why, line);
            Q_EMIT refused(why);
            return true;
        }
    }
    return QStyledItemDelegate::eventFilter(watched, event);
}

}  // namespace korvex
