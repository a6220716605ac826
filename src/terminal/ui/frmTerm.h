#pragma once

#include <QAction>
#include <functional>

#include "terminal/Terminal.h"
#include "windows/ui/PortSwitch.h"
#include "windows/ui/ToolWindow.h"

class QLabel;
class QLineEdit;
class QMenu;
class QPushButton;

namespace korvex {

/// What the terminal's entries start beside the terminal's own logic.
struct TerminalActions {
    std::function<void()> saveMenu;
    std::function<void()> restoreMenu;
    std::function<void()> saveMemories;     ///< empty: the entry stands disabled
    std::function<void()> restoreMemories;  ///< empty: the entry stands disabled
    std::function<void()> portSettings;
    std::function<void(QMenu* menu)> addShareEntries = {};  ///< at the end of the port menu
    std::function<void()> about;
    std::function<void()> backupRadio;
    std::function<void()> restoreRadio;
    std::function<void()> checkRadio;
    std::function<bool()> endProgram;  ///< the close box; false keeps the window
};

/// "FT-2000 Menu and Memory Saver": the two traffic panes, the menus and the toolbar.
class frmTerm : public ToolWindow {
    Q_OBJECT

public:
    frmTerm(Terminal& terminal, ToolWindows& windows, SettingsStore& settings, TerminalActions actions);

protected:
    bool closeBox() override;

private:
    void makeFileMenu();
    void makePortMenu();
    void makeMoreMenu(ToolWindows& windows);
    void makeToolBar();
    void makePanes();
    void makeStatusBar();
    QPushButton* makeClearButton(QWidget* row);
    QLineEdit* makePathBox(QWidget* row);
    QLabel* makeTypedText(QWidget* row);
    QLineEdit* makeWrittenLine(QWidget* row);
    QWidget* makeBufferRow();
    QWidget* makeConnectFrame();
    void followPort();

    QAction* entry(QMenu* menu, const char* name, const QString& caption, std::function<void()> run);
    QAction* radioEntry(QMenu* menu, const char* name, const QString& caption, const std::function<void()>& run);
    QAction* toolButton(const char* key, const QString& tip, const char* icon, const std::function<void()>& run);

    Terminal& m_terminal;
    CatLink& m_link;
    TerminalActions m_actions;
    QList<QAction*> m_radioActions;  // enabled exactly while the port is open
    PortSwitch* m_portSwitch;
    Connections m_connections;
};

}  // namespace korvex
