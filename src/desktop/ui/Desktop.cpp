#include "desktop/ui/Desktop.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QSessionManager>
#include <QShortcut>
#include <algorithm>
#include <array>
#include <utility>

#include "app/ui/frmAbout.h"
#include "app/ui/frmUtilities.h"
#include "bandstack/ui/frmBandStack.h"
#include "cat/ui/frmProperties.h"
#include "eq/ui/frmEQ_Set.h"
#include "keyer/ui/frmKeyer.h"
#include "memory/ui/frmChannelinfo.h"
#include "memory/ui/frmMem.h"
#include "menu/ui/frmDescription.h"
#include "share/ui/ShareEntries.h"
#include "terminal/ui/frmTerm.h"
#include "windows/ui/FileMenu.h"

namespace korvex {

namespace {

/// The entries by which the tools load and save their own files.
constexpr auto loadEntries =
    std::to_array<const char*>({"mnu_LoadMemFile", "mnu_loadDatafromHD", "mnu_LoadKeyer", "mnu_loadFlexgrid"});
constexpr auto saveEntries =
    std::to_array<const char*>({"mnu_SaveMemFile", "mnu_saveDatafromHD", "mnu_SaveKeyer", "Flexgrid_toGrid"});

void giveKeys(const QWidget& window, const auto& entries, const QKeySequence& keys) {
    for (const char* name : entries) {
        auto* entry = window.findChild<QAction*>(QLatin1String(name));
        if (entry && entry->shortcut().isEmpty()) entry->setShortcut(keys);
    }
}

}  // namespace

Desktop::Desktop(Program& program) : m_program(program), m_progress(program.progress) {
    SettingsStore& settings = program.machine().settings;
    follow(program.windows.terminal, [this] { return makeTerminal(); });
    follow(program.windows.memoryEditor, [this, &settings] {
        return std::make_unique<frmMem>(m_program.memory, m_program.link, m_program.windows, settings);
    });
    follow(program.windows.memoryList, [this, &settings] {
        return std::make_unique<frmChannelinfo>(
            m_program.memory, m_program.link, m_program.windows, settings,
            ListTableActions{.importTable = [this] { m_program.listTables.importTable(); },
                             .exportSheet = [this] { m_program.listTables.exportSheet(); },
                             .exportForChirp = [this] { m_program.listTables.exportForChirp(); }});
    });
    follow(program.windows.equalizer,
           [this, &settings] { return std::make_unique<frmEQ_Set>(m_program.eqWindow, settings); });
    follow(program.windows.bandStack, [this, &settings] {
        return std::make_unique<frmBandStack>(m_program.bandStackWindow, m_program.link, settings);
    });
    follow(program.windows.keyer,
           [this, &settings] { return std::make_unique<frmKeyer>(m_program.keyerWindow, m_program.link, settings); });
    follow(program.windows.menuManager, [this, &settings] {
        return std::make_unique<frmDescription>(m_program.menuManager, m_program.link, settings,
                                                [this] { return m_program.end(); });
    });
    QObject::connect(qApp, &QGuiApplication::commitDataRequest, &m_context,
                     [this](QSessionManager& session) { onSessionEnd(session); });
    m_connections += program.unloadingWindows.connect([this] { unloadWindows(); });
    m_connections += program.ended.connect([] { QApplication::exit(0); });
}

Desktop::~Desktop() = default;

void Desktop::showStartWindow() {
    m_startWindow = std::make_unique<frmUtilities>(m_program.startWindow, m_program.machine().settings,
                                                   [this](QWidget* owner) { showAboutBox(owner); });
    addFileMenu(*m_startWindow, "mnu_Files");
    acceptFiles(*m_startWindow);
    m_startWindow->show();
}

/// What every window answers to, whatever it is for.
void Desktop::introduce(ToolWindow& window) {
    acceptFiles(window);
    giveKeys(window, loadEntries, QKeySequence::Open);
    giveKeys(window, saveEntries, QKeySequence::Save);
    const auto add = [&window](const QKeySequence& keys, auto run) {
        auto* shortcut = new QShortcut(keys, &window);
        // Queued: the end of the program takes the window, and with it the shortcut, away.
        QObject::connect(shortcut, &QShortcut::activated, &window, run, Qt::QueuedConnection);
    };
    add(Qt::Key_F1, [this] { m_program.startWindow.mnuHelp_Click(); });
    add(Qt::CTRL | Qt::Key_Q, [this] { m_program.end(); });
}

void Desktop::acceptFiles(ToolWindow& window) {
    m_connections += window.filesDropped.connect([this](const auto& files) { m_program.opener.open(files); });
}

void Desktop::addFileMenu(ToolWindow& window, const char* menu) {
    auto* entries = window.findChild<QMenu*>(QLatin1String(menu));
    addFileEntries(*entries, {.ask = [this] { m_program.opener.mnu_OpenFile_Click(m_program.files.path); },
                              .recent = [this] { return m_program.opener.recent(); },
                              .openThis = [this](const std::string& file) { m_program.opener.open({file}); }});
}

void Desktop::follow(WindowState& state, Maker make) {
    // The window, once made; shared by the handlers of its state.
    const auto window = std::make_shared<ToolWindow*>(nullptr);
    m_connections += state.visible.changed.connect([this, window, make = std::move(make)](bool visible) {
        if (visible && !*window) {
            m_loaded.push_back(make());
            *window = m_loaded.back().get();
            introduce(**window);
        }
        if (*window && !visible) (*window)->hide();
    });
    m_connections += state.restored.connect([window] {
        if (*window) (*window)->showRestored();
    });
    m_connections += state.shownBehind.connect([window] {
        if (*window) (*window)->showBehind();
    });
}

std::unique_ptr<ToolWindow> Desktop::makeTerminal() {
    auto terminal = std::make_unique<frmTerm>(
        m_program.terminal, m_program.windows, m_program.machine().settings,
        TerminalActions{
            .saveMenu = [this] { m_program.menuSave.mnu_Store_Click(); },
            .restoreMenu = [this] { m_program.menuRestore.mnu_Restore_Click(); },
            .saveMemories = [this] { m_program.memory.saver.mnu_saveMem_Click(); },
            .restoreMemories = [this] { m_program.memory.restorer.mnu_restMem_Click(); },
            .portSettings = [this] { showPortSettings(); },
            .addShareEntries = [this](QMenu* menu) { addShareEntries(*menu, m_program.shareEntry, m_connections); },
            .about = [this] { showAboutBox(terminalWindow()); },
            .backupRadio = [this] { m_program.backupEntry.mnu_BackupRadio_Click(); },
            .restoreRadio = [this] { m_program.restoreEntry.mnu_RestoreRadio_Click(); },
            .checkRadio = [this] { m_program.checkEntry.mnu_CheckRadio_Click(); },
            .endProgram = [this] { return m_program.end(); },
        });
    addFileMenu(*terminal, "mnu_File");
    return terminal;
}

void Desktop::onSessionEnd(QSessionManager& session) {
    const bool mayAsk = session.allowsInteraction();
    if (!m_program.mayEndSession(mayAsk)) session.cancel();
    if (mayAsk) session.release();
}

QWidget* Desktop::terminalWindow() const {
    const auto found = std::find_if(m_loaded.begin(), m_loaded.end(), [](const auto& window) {
        return window->objectName() == QStringLiteral("frmTerm");
    });
    return found == m_loaded.end() ? nullptr : found->get();
}

void Desktop::showAboutBox(QWidget* owner) {
    showAbout(owner, QApplication::applicationFilePath().toStdString(), m_program.machine().shell,
              m_program.machine().msgBox);
}

void Desktop::showPortSettings() {
    if (!m_program.link.freeLine()) return;  // looking for ports closes ours
    PortSettings logic = m_program.makePortSettings();
    logic.Form_Load();
    frmProperties dialog(logic, terminalWindow());
    if (dialog.exec() == QDialog::Accepted) m_program.portSettingsStored();
}

void Desktop::unloadWindows() {
    std::for_each(m_loaded.rbegin(), m_loaded.rend(), [](const auto& window) { window->unload(); });
    if (m_startWindow) m_startWindow->storePlace();
}

}  // namespace korvex
