#include "terminal/ui/TransmitView.h"

#include <QContextMenuEvent>
#include <QDragMoveEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QTextDocument>

namespace korvex {

TransmitView::TransmitView(Terminal& terminal, QWidget* parent)
    : TrafficView(terminal.link().sent(), parent), m_terminal(terminal) {
    connect(document(), &QTextDocument::contentsChange, this, &TransmitView::onForeignEdit);
}

void TransmitView::type(const QString& text) {
    for (const char32_t c : text.toStdU32String()) {
        m_terminal.term3_KeyPress(c == U'\n' ? "\r" : QString::fromUcs4(&c, 1).toStdString());
    }
    flush();
}

void TransmitView::keyPressEvent(QKeyEvent* event) {
    const bool shortcut = (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0 &&
                          (event->modifiers() & Qt::GroupSwitchModifier) == 0;
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter: type(QStringLiteral("\n")); return;
        case Qt::Key_Backspace:
            m_terminal.term3_Backspace();
            flush();
            return;
        case Qt::Key_Delete: return;
        default: break;
    }
    if (event == QKeySequence::Cut || event == QKeySequence::Undo || event == QKeySequence::Redo) return;
    const QString text = event->text();
    if (!shortcut && !text.isEmpty() && text.at(0).isPrint()) {
        type(text);
        return;
    }
    // What is left moves the caret, selects, copies, or pastes through insertFromMimeData.
    if (event == QKeySequence::Copy || event == QKeySequence::Paste || event == QKeySequence::SelectAll ||
        text.isEmpty()) {
        TrafficView::keyPressEvent(event);
        return;
    }
    event->ignore();
}

void TransmitView::inputMethodEvent(QInputMethodEvent* event) {
    if (!event->commitString().isEmpty()) type(event->commitString());
    event->accept();
}

/// A file is dropped on the window, and not typed.
bool TransmitView::canInsertFromMimeData(const QMimeData* source) const {
    return !source->hasUrls() && TrafficView::canInsertFromMimeData(source);
}

void TransmitView::insertFromMimeData(const QMimeData* source) {
    m_terminal.term3_Paste(source->text().toStdString());
    flush();
}

void TransmitView::contextMenuEvent(QContextMenuEvent* event) {
    QMenu menu(this);
    QAction* copyAction = menu.addAction(QStringLiteral("&Copy"), this, &QPlainTextEdit::copy);
    copyAction->setEnabled(textCursor().hasSelection());
    QAction* pasteAction = menu.addAction(QStringLiteral("&Paste"), this, &QPlainTextEdit::paste);
    pasteAction->setEnabled(canPaste());
    menu.addAction(QStringLiteral("Select &All"), this, &QPlainTextEdit::selectAll);
    menu.exec(event->globalPos());
}

void TransmitView::dragMoveEvent(QDragMoveEvent* event) {
    // Text that is dragged about inside the pane would be moved, and the pane edits nothing by itself.
    if (event->source() == viewport()) {
        event->ignore();
        return;
    }
    TrafficView::dragMoveEvent(event);
}

void TransmitView::onForeignEdit(int position, int removed, int added) {
    if (drawing()) return;
    Q_UNUSED(removed);
    QString text;
    for (int i = position; i < position + added; ++i) text += document()->characterAt(i);
    text.replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
    // The document must not be changed from inside its own signal.
    QMetaObject::invokeMethod(
        this,
        [this, text] {
            type(text);
            redrawAll();
        },
        Qt::QueuedConnection);
}

}  // namespace korvex
