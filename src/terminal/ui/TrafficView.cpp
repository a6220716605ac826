#include "terminal/ui/TrafficView.h"

#include <QFontDatabase>
#include <QMimeData>
#include <QScrollBar>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <utility>

#include "base/CodePage.h"

namespace korvex {

namespace {

constexpr int longestLine = 1000;
constexpr int shortestLine = 20;       // no need to break before that, however narrow the view
constexpr QChar breakHere(u'\u200B');  // without a width; without it no line ever ends behind a ";"

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
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
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
        m_mayBreak = false;
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
    showNewest();
}

void TrafficView::showNewest() {
    moveCursor(QTextCursor::End);
    verticalScrollBar()->setValue(verticalScrollBar()->maximum());
}

void TrafficView::resizeEvent(QResizeEvent* event) {
    const bool wasAtEnd = verticalScrollBar()->value() == verticalScrollBar()->maximum();
    QPlainTextEdit::resizeEvent(event);
    if (wasAtEnd) verticalScrollBar()->setValue(verticalScrollBar()->maximum());
}

QMimeData* TrafficView::createMimeDataFromSelection() const {
    auto* copied = new QMimeData;
    copied->setText(textCursor().selection().toPlainText().remove(breakHere));
    return copied;
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
    QString folded;
    folded.reserve(text.size() + 8);
    for (const QChar c : std::as_const(text)) {
        if (c == QLatin1Char('\n')) {
            m_column = 0;
        } else if (++m_column > longestLine) {
            folded += QLatin1Char('\n');
            m_column = 0;
        } else if (m_mayBreak) {
            folded += breakHere;
        }
        folded += c;
        m_mayBreak = c == QLatin1Char(';') && m_column > shortestLine;
    }
    text = folded;
}

}  // namespace korvex
