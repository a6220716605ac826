#include "keyer/ui/frmInfo.h"

#include <QMenuBar>
#include <QPlainTextEdit>

#include "base/CodePage.h"
#include "keyer/KeyerInfo.h"

namespace korvex {

frmInfo::frmInfo(QWidget* keyerWindow) : QMainWindow(keyerWindow) {
    setObjectName(QStringLiteral("frmInfo"));
    setWindowTitle(QStringLiteral("Information"));
    auto* close = menuBar()->addAction(QStringLiteral("Close Window"));
    close->setObjectName(QStringLiteral("mnu_close"));
    close->setShortcut(Qt::Key_Escape);
    connect(close, &QAction::triggered, this, &QWidget::close);

    auto* text = new QPlainTextEdit(QString::fromStdString(utf8FromWire(keyerInfo)));
    text->setObjectName(QStringLiteral("Text1"));
    text->setAccessibleName(QStringLiteral("Information"));
    text->setReadOnly(true);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    text->setLineWrapMode(QPlainTextEdit::NoWrap);
    setCentralWidget(text);

    const QFontMetrics metrics = text->fontMetrics();
    const QSize lines = metrics.size(0, text->toPlainText());
    resize(lines.width() + 6 * metrics.averageCharWidth(), lines.height() + 5 * metrics.lineSpacing());
}

}  // namespace korvex
