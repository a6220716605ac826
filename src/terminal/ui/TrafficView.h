#pragma once

#include <QPlainTextEdit>
#include <QString>
#include <QTimer>

#include "cat/TrafficDisplay.h"

namespace korvex {

/// Shows a traffic display. What comes is drawn in batches, so that the fastest line costs little more than the drawing
/// itself; the last lines stay, older ones go. Characters that cannot be seen are shown as their control pictures, and
/// a line without an end is folded, so that noise stays readable and cheap. Lines that are too long for the view go on
/// below, behind a ";" where there is one; what is copied has no trace of that.
class TrafficView : public QPlainTextEdit {
    Q_OBJECT

public:
    explicit TrafficView(TrafficDisplay& display, QWidget* parent = nullptr);

    static constexpr int batchMs = 25;
    static constexpr int keptLines = 4000;

protected:
    QMimeData* createMimeDataFromSelection() const override;
    void resizeEvent(QResizeEvent* event) override;
    /// Draws at once what the display has and the view lacks.
    void flush();
    bool drawing() const { return m_drawing; }
    TrafficDisplay& display() { return m_display; }
    /// Draws everything anew.
    void redrawAll();

private:
    void draw(std::string_view wire);
    QString readable(std::string_view wire);
    void fold(QString& text);
    void showNewest();

    TrafficDisplay& m_display;
    QTimer m_batch;
    Connection m_outdated;
    bool m_drawing = false;
    bool m_mayBreak = false;    // the last character was a ";" far enough from the line's beginning
    bool m_heldReturn = false;  // a CR at the end of a batch: its LF may come with the next
    int m_column = 0;
};

}  // namespace korvex
