#pragma once

#include <functional>
#include <memory>

#include "base/Signal.h"
#include "gridedit/clsFlexGridEdit2.h"
#include "gridedit/ui/QtEditableGrid.h"
#include "windows/ui/ToolWindow.h"

class QAction;
class QMenu;

namespace korvex {

class CatLink;
class FlexGridView;
class KeyerWindow;
class frmInfo;

/// "Keyer Memory": the five message texts in a grid that is edited in place, and the entries that move them between the
/// radio, the grid and a file.
class frmKeyer : public ToolWindow {
    Q_OBJECT

public:
    frmKeyer(KeyerWindow& logic, CatLink& link, SettingsStore& settings);

protected:
    bool closeBox() override;
    void showEvent(QShowEvent* event) override;

private:
    QAction* entry(QMenu* menu, const char* name, const char* caption, std::function<void()> run);
    void makeMenu(CatLink& link);
    void makeBody();
    void fitSize();
    void MSFlexGrid_k1_Click();
    void mnu_Info_Click();

    KeyerWindow& m_logic;
    FlexGridView* MSFlexGrid_k1 = nullptr;
    frmInfo* m_info = nullptr;
    std::unique_ptr<QtEditableGrid> m_editable;
    std::unique_ptr<clsFlexGridEdit2> m_editor;
    Connection m_refused;
    Connections m_connections;
};

}  // namespace korvex
