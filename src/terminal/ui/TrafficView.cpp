#include "terminal/ui/TrafficView.h"

#include <QFontDatabase>
#include <QScrollBar>
#include <QTextCursor>
#include <QTextDocument>

#include "base/CodePage.h"

namespace korvex {

namespace {

constexpr int longestLine = 1000;

QFont trafficFont() {
    QFont font(QStringLiteral("Fixedsys"));
    font.setStyleHint(QFont::TypeWriter);
    if (!QFontDatabase::hasFamily(font.family())) font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    return font;
}

/// No more than the view keeps: what a fast line brought beyond that would be drawn only to be thrown away.
std::string_view lastLines(std::string_view wire) {
    int lines = 0;
    for (std::size_t i = wire.size(); i > 0; --i) {
        if (wire[i - 1] == '\n' && ++lines > TrafficView::keptLines) return wire.substr(i);
    }
    return wire;
}

QChar visible(char32_t c) {
    constexpr char32_t controlPictures = 0x2400;
    constexpr char32_t deletePicture = 0x2421;
    if (c < 0x20 && c != '\n' && c != '\t') c += controlPictures;
    if (c == 0x7F) c = deletePicture;
    if (c > 0x7F && c < 0xA0) c = QChar::ReplacementCharacter;
    return {static_cast<char16_t>(c)};
}

}  // namespace

TrafficView::TrafficView(TrafficDisplay& display, QWidget* parent) : QPlainTextEdit(parent), m_display(display) {
    setFont(trafficFont());
    setUndoRedoEnabled(false);
    setLineWrapMode(QPlainTextEdit::NoWrap);
    setMaximumBlockCount(keptLines);
    m_batch.setSingleShot(true);
    m_batch.setInterval(batchMs);
    connect(&m_batch, &QTimer::timeout, this, [this] { flush(); });
    m_outdated = m_display.outdated.connect([this] { m_batch.start(); });
    redrawAll();
}

void TrafficView::redrawAll() {
    m_display.forgetShown();
    flush();
}

void TrafficView::flush() {
    const auto update = m_display.takeUpdate();
    m_drawing = true;
    if (update.replacesAll) {
        clear();
        m_heldReturn = false;
        m_column = 0;
    }
    draw(lastLines(update.text));
    m_drawing = false;
}

void TrafficView::draw(std::string_view wire) {
    if (wire.empty()) return;
    QTextCursor end(document());
    end.movePosition(QTextCursor::End);
    end.insertText(readable(wire));
    moveCursor(QTextCursor::End);
    verticalScrollBar()->setValue(verticalScrollBar()->maximum());
    horizontalScrollBar()->setValue(horizontalScrollBar()->minimum());
}

QString TrafficView::readable(std::string_view wire) {
    QString text;
    text.reserve(static_cast<qsizetype>(wire.size()) + 1);
    for (const char c : wire) {
        if (m_heldReturn && c != '\n') text += visible('\r');
        m_heldReturn = c == '\r';
        if (m_heldReturn) continue;
        text += visible(unicodeFromWire(static_cast<unsigned char>(c)));
    }
    fold(text);
    return text;
}

void TrafficView::fold(QString& text) {
    qsizetype lineStart = text.lastIndexOf(QLatin1Char('\n')) + 1;
    if (lineStart == 0 && m_column + text.size() <= longestLine) {
        m_column += static_cast<int>(text.size());
        return;
    }
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text.at(i) == QLatin1Char('\n')) {
            m_column = 0;
        } else if (++m_column > longestLine) {
            text.insert(i, QLatin1Char('\n'));
            m_column = 0;
        }
    }
}

}  // namespace korvex
