#pragma once

#include <functional>

#include "memory/MemoryManager.h"
#include "terminal/ToolWindows.h"
#include "windows/ui/ToolWindow.h"

class QListWidget;
class QMenu;

namespace korvex {

class FlexGridView;

/// "Memory Channel List": all channels in a grid.
class frmChannelinfo : public ToolWindow {
    Q_OBJECT

public:
    frmChannelinfo(MemoryManager& memory, CatLink& link, ToolWindows& windows, SettingsStore& settings);

protected:
    bool closeBox() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void markModified(bool modified);
    void makeMenus();
    QAction* entry(QMenu* menu, const char* name, const QString& caption, std::function<void()> run);
    void makeGrid();
    void makeList1();
    void makeStatusBar();
    void pressed(int row, int col, Qt::MouseButton button);
    void keyDown(int key);
    void showList1(const QPoint& at);
    void hideList1();
    void chooseFromList1(int entry);
    void store();

public:
    void unload() override { store(); }

private:
    MemoryManager& m_memory;
    CatLink& m_link;
    ToolWindows& m_windows;
    FlexGridView* grid = nullptr;
    QListWidget* List1 = nullptr;
    QList<QAction*> m_radioEntries;  // enabled exactly while the port is open
    Connections m_connections;
};

}  // namespace korvex
