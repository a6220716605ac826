#pragma once

#include <QObject>
#include <QPointer>
#include <utility>
#include <vector>

#include "gridedit/EditableGrid.h"
#include "platform/qtwidgets/FlexGridView.h"

class QInputMethodEvent;

namespace korvex {

class CellEditBox;

/// A FlexGridView and the window that it stands in, for a cell editor. A window holds one per grid that can be edited,
/// declared before the editor:
///
///     QtEditableGrid m_editable{*m_view};
///     std::unique_ptr<clsFlexGridEdit2> m_editor;
class QtEditableGrid : public QObject, public EditableGrid {
    Q_OBJECT

public:
    explicit QtEditableGrid(FlexGridView& view);

    MSFlexGrid& cells() override { return m_cells; }
    std::unique_ptr<EditBox> makeEditBox(EditBoxEvents& events) override;
    void giveFocus() override;
    bool isCurrentInSight() const override;
    void bringCurrentIntoSight() override;
    void showHint(const std::string& utf8) override;
    void takeTabStops() override;
    void restoreTabStops() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    class Box;

    void watchWindow();
    void takeTyped(const QString& text);
    void passComposition(QInputMethodEvent& event);
    void endComposition(bool taken);
    QString freeName() const;

    MSFlexGrid& m_cells;
    QPointer<FlexGridView> m_view;
    QPointer<CellEditBox> m_box;  // the newest
    QPointer<QWidget> m_watchedWindow;
    bool m_composing = false;  // an input method began on the grid and has not finished
    std::vector<std::pair<QPointer<QWidget>, Qt::FocusPolicy>> m_savedTabStops;
};

}  // namespace korvex
