#pragma once

#include "terminal/Terminal.h"
#include "terminal/ui/TrafficView.h"

namespace korvex {

/// The transmit pane: shows what was sent and takes what is typed. It edits nothing by itself; keys, input methods,
/// pasted text and text put in by assistive programs go to the terminal's logic, whose display is then shown.
class TransmitView : public TrafficView {
    Q_OBJECT

public:
    explicit TransmitView(Terminal& terminal, QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;

private:
    void type(const QString& text);
    void onForeignEdit(int position, int removed, int added);

    Terminal& m_terminal;
};

}  // namespace korvex
