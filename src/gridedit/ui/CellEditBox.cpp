#include "gridedit/ui/CellEditBox.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QValidator>
#include <utility>

namespace korvex {

namespace {

constexpr QColor lightOrange(0xFF, 0xC0, 0x80);

EditKey editKeyOf(int key) {
    switch (key) {
        case Qt::Key_Tab:
        case Qt::Key_Backtab: return EditKey::Tab;
        case Qt::Key_Return:
        case Qt::Key_Enter: return EditKey::Enter;
        case Qt::Key_Up: return EditKey::Up;
        case Qt::Key_Down: return EditKey::Down;
        case Qt::Key_Escape: return EditKey::Escape;
        default: return EditKey::Other;
    }
}

QPalette boxPalette(QPalette palette) {
    palette.setColor(QPalette::Base, lightOrange);
    palette.setColor(QPalette::Text, Qt::black);  // whatever the desktop's theme: the background is always light
    return palette;
}

}  // namespace

/// Asks the editor about every text that would come to stand in the box, however it comes: keys, input methods, the
/// clipboard, dropping, undo.
class CellEditBox::Refusals : public QValidator {
public:
    explicit Refusals(CellEditBox& box) : QValidator(&box), m_box(box) {}

    State validate(QString& text, int&) const override {
        if (!m_box.m_events) return Acceptable;
        m_box.m_refusal = m_box.m_events->refusal(text.toStdString());
        return m_box.m_refusal ? Invalid : Acceptable;
    }

private:
    CellEditBox& m_box;
};

CellEditBox::CellEditBox(EditBoxEvents& events, QWidget* window) : QLineEdit(window), m_events(&events) {
    hide();
    setAccessibleName(QStringLiteral("Edit cell"));
    setFocusPolicy(Qt::ClickFocus);
    setPalette(boxPalette(palette()));
    setValidator(new Refusals(*this));
    connect(this, &QLineEdit::textChanged, this, [this] {
        if (m_events) m_events->boxTextChanged();
    });
    connect(this, &QLineEdit::inputRejected, this, &CellEditBox::tellRefusal);
}

void CellEditBox::release() {
    m_events = nullptr;
    hide();
    setObjectName({});
    deleteLater();
}

void CellEditBox::tellRefusal() {
    if (const auto reason = std::exchange(m_refusal, std::nullopt); reason && m_events) m_events->boxRefused(*reason);
}

bool CellEditBox::event(QEvent* event) {
    if (event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride) {
        const auto& key = static_cast<const QKeyEvent&>(*event);
        const EditKey editKey = editKeyOf(key.key());
        if (event->type() == QEvent::ShortcutOverride && editKey != EditKey::Other) {
            event->accept();
            return true;
        }
        // Tab has to be caught here, before it carries the focus away.
        if (event->type() == QEvent::KeyPress && editKey == EditKey::Tab) return forwardKeyDown(key);
    }
    return QLineEdit::event(event);
}

bool CellEditBox::forwardKeyDown(const QKeyEvent& event) {
    return m_events && m_events->boxKeyDown(editKeyOf(event.key()));
}

void CellEditBox::keyPressEvent(QKeyEvent* event) {
    if (forwardKeyDown(*event) || !m_events) return;
    QKeyEvent typed(event->type(), event->key(), event->modifiers(), event->nativeScanCode(), event->nativeVirtualKey(),
                    event->nativeModifiers(), asTyped(event->text()), event->isAutoRepeat(), quint16(event->count()));
    QLineEdit::keyPressEvent(&typed);
    event->setAccepted(typed.isAccepted());
}

void CellEditBox::inputMethodEvent(QInputMethodEvent* event) {
    QInputMethodEvent typed(asTyped(event->preeditString()), event->attributes());
    typed.setCommitString(asTyped(event->commitString()), event->replacementStart(), event->replacementLength());
    QLineEdit::inputMethodEvent(&typed);
    event->setAccepted(typed.isAccepted());
}

void CellEditBox::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    if (m_events) m_events->boxLostFocus();
}

QString CellEditBox::asTyped(const QString& text) const {
    if (!m_events || text.isEmpty()) return text;
    return QString::fromStdString(m_events->boxKeyPress(text.toStdString()));
}

}  // namespace korvex
