#pragma once

#include <functional>
#include <memory>

#include "base/Property.h"
#include "gridedit/clsFlexGridEdit.h"
#include "gridedit/ui/QtEditableGrid.h"
#include "windows/ui/ToolWindow.h"

class QAction;
class QLabel;
class QMenu;

namespace korvex {

class CatLink;
class MenuManager;
class frmTitle;

/// "Menu Manager": the grid of all menu items, and its menus.
class frmDescription : public ToolWindow {
    Q_OBJECT

public:
    /// `endProgram` is what the close box does; false when the user stays.
    frmDescription(MenuManager& logic, CatLink& link, SettingsStore& settings, std::function<bool()> endProgram);
    ~frmDescription() override;

protected:
    bool closeBox() override;

private:
    QAction* entry(QMenu* menu, const char* name, const char* caption, void (MenuManager::*run)());
    void makeMenus(CatLink& link);
    void makeGrid();
    void makeBody();
    void growToGrid();
    void addField(Property<std::string>& text, const char* name, const char* word, const char* meaning);
    void makeStatusBar(CatLink& link);
    void wire();
    void onKey(int key, Qt::KeyboardModifiers modifiers);
    void bindEditor();
    void writeBack();

    MenuManager& m_logic;
    std::function<bool()> m_endProgram;
    FlexGridView* grid;
    QLabel* notice;
    std::unique_ptr<frmTitle> m_title;
    std::unique_ptr<QtEditableGrid> m_editable;
    std::unique_ptr<clsFlexGridEdit> m_editor;
    Connections m_connections;
};

}  // namespace korvex
