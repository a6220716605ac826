#pragma once

#include <QObject>
#include <functional>
#include <memory>
#include <vector>

#include "app/Program.h"
#include "windows/ui/ToolWindow.h"
#include "windows/ui/frmProgr.h"

class QSessionManager;

namespace korvex {

class frmUtilities;
struct FileMenuCalls;

/// The windows of the program. Each is made when it is first to be seen and lives until the end; from then on it
/// follows what the logic holds. The only place that knows all windows.
class Desktop {
public:
    explicit Desktop(Program& program);
    ~Desktop();

    void showStartWindow();

private:
    using Maker = std::function<std::unique_ptr<ToolWindow>()>;

    void follow(WindowState& state, Maker make);
    void introduce(ToolWindow& window);
    void addFileMenu(ToolWindow& window, const char* menu);
    void acceptFiles(ToolWindow& window);
    std::unique_ptr<ToolWindow> makeTerminal();
    void onSessionEnd(QSessionManager& session);
    void showAboutBox(QWidget* owner);
    void showPortSettings();
    QWidget* terminalWindow() const;
    void unloadWindows();

    Program& m_program;
    ProgressView m_progress;
    std::unique_ptr<frmUtilities> m_startWindow;
    std::vector<std::unique_ptr<ToolWindow>> m_loaded;  // in the order of loading
    QObject m_context;                                  // Qt's connections end with it
    Connections m_connections;
};

}  // namespace korvex
