#pragma once

#include <functional>

#include "memory/MemoryManager.h"
#include "terminal/ToolWindows.h"
#include "windows/ui/ToolWindow.h"

class QMenu;

namespace korvex {

class FindBar;
class FlexGridView;
class PopupList;

/// What the list's window starts of a part that it does not know.
struct ListTableActions {
    std::function<void()> importTable;
    std::function<void()> exportSheet;
    std::function<void()> exportForChirp;
};

/// "Memory Channel List": all channels in a grid, and what can be done with their rows.
class frmChannelinfo : public ToolWindow {
    Q_OBJECT

public:
    frmChannelinfo(MemoryManager& memory, CatLink& link, ToolWindows& windows, SettingsStore& settings,
                   ListTableActions tables);

protected:
    bool closeBox() override;

private:
    void markModified(bool modified);
    void makeMenus();
    void makeTableEntries(QMenu* menu);
    QAction* entry(QMenu* menu, const char* name, const QString& caption, std::function<void()> run);
    void makeEditMenu();
    void makeRowEntries(QMenu* menu);
    void makeViewMenu();
    void followHistory(QAction* undo, QAction* redo);
    void makeBody();
    QWidget* makeNotes();
    void makeGrid();
    void makeList1();
    void makeStatusBar();
    void pressed(int row, int col, Qt::MouseButton button);
    void keyDown(int key);
    void showList1(const QPoint& at);
    std::vector<int> chosen() const;
    void store();

public:
    void unload() override { store(); }

private:
    MemoryManager& m_memory;
    CatLink& m_link;
    ToolWindows& m_windows;
    SettingsStore& m_settings;
    ListTableActions m_tables;
    FlexGridView* grid = nullptr;
    PopupList* List1 = nullptr;
    FindBar* m_findBar = nullptr;
    QList<QAction*> m_radioEntries;  // enabled exactly while the port is open
    Connections m_connections;
};

}  // namespace korvex
