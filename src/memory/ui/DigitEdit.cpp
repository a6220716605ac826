#include "memory/ui/DigitEdit.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QSignalBlocker>

#include "memory/DigitBox.h"

namespace korvex {

namespace {

bool matchesOneOf(const QKeyEvent& event, std::initializer_list<QKeySequence::StandardKey> keys) {
    return std::any_of(keys.begin(), keys.end(), [&](auto key) { return event.matches(key); });
}

}  // namespace

DigitEdit::DigitEdit(DigitBox& box, QWidget* parent) : QLineEdit(parent), m_box(box) {
    setMaxLength(static_cast<int>(box.text.get().size()));
    setInputMethodHints(Qt::ImhDigitsOnly);
    m_shown = m_box.text.bind([this](const std::string&) { showText(); });
    // What reaches the text past the events below, such as assistive programs, counts as pasted.
    connect(this, &QLineEdit::textChanged, this, [this](const QString& text) {
        take(text);
        showText();
    });
}

void DigitEdit::showText() {
    const QSignalBlocker quiet(this);
    const QString shown = QString::fromStdString(m_box.text);
    if (text() != shown) setText(shown);
}

void DigitEdit::take(const QString& text) {
    if (!m_box.paste(text.toStdString())) QApplication::beep();
}

void DigitEdit::cutAll() {
    QApplication::clipboard()->setText(text());
    m_box.clear();
}

bool DigitEdit::runCommand(const QKeyEvent& event) {
    if (event.matches(QKeySequence::Paste)) {
        take(QApplication::clipboard()->text());
    } else if (event.matches(QKeySequence::Cut)) {
        cutAll();
    } else if (event.key() == Qt::Key_Delete ||
               matchesOneOf(event, {QKeySequence::DeleteEndOfLine, QKeySequence::DeleteCompleteLine,
                                    QKeySequence::DeleteStartOfWord, QKeySequence::DeleteEndOfWord})) {
        m_box.clear();
    } else if (event.key() == Qt::Key_Backspace) {
        m_box.backspace();
    } else {
        return matchesOneOf(event, {QKeySequence::Undo, QKeySequence::Redo});
    }
    return true;
}

void DigitEdit::keyPressEvent(QKeyEvent* event) {
    if (runCommand(*event)) return event->accept();
    const QString typed = event->text();
    const bool isShortcut = event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    if (isShortcut || typed.isEmpty() || !typed.front().isPrint()) return QLineEdit::keyPressEvent(event);
    m_box.type(typed.front().toLatin1());
    event->accept();
}

void DigitEdit::inputMethodEvent(QInputMethodEvent* event) {
    for (const QChar c : event->commitString()) m_box.type(c.toLatin1());
    event->accept();
}

void DigitEdit::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    selectAll();
}

void DigitEdit::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::MiddleButton) {
        if (QApplication::clipboard()->supportsSelection())
            take(QApplication::clipboard()->text(QClipboard::Selection));
        return event->accept();
    }
    QLineEdit::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton && !hasSelectedText()) selectAll();
}

void DigitEdit::contextMenuEvent(QContextMenuEvent* event) {
    QMenu menu(this);
    menu.addAction(QStringLiteral("Cut"), this, [this] { cutAll(); });
    menu.addAction(QStringLiteral("Copy"), this, [this] { QApplication::clipboard()->setText(text()); });
    menu.addAction(QStringLiteral("Paste"), this, [this] { take(QApplication::clipboard()->text()); });
    menu.addAction(QStringLiteral("Clear"), this, [this] { m_box.clear(); });
    menu.exec(event->globalPos());
}

void DigitEdit::dropEvent(QDropEvent* event) {
    take(event->mimeData()->text());
    event->acceptProposedAction();
}

}  // namespace korvex
