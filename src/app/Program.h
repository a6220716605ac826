#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "app/FileOpener.h"
#include "app/StartWindow.h"
#include "backup/Backup.h"
#include "backup/BackupEntry.h"
#include "backup/Restore.h"
#include "backup/RestoreEntry.h"
#include "bandstack/BandStackWindow.h"
#include "cat/CatLink.h"
#include "cat/PortSettings.h"
#include "convert/ListTables.h"
#include "doctor/CheckEntry.h"
#include "doctor/RadioCheck.h"
#include "eq/EqWindow.h"
#include "keyer/KeyerWindow.h"
#include "memory/MemoryManager.h"
#include "menu/MenuManager.h"
#include "menu/MenuRestore.h"
#include "menu/MenuSave.h"
#include "menu/MenuWriter.h"
#include "platform/ChildProgram.h"
#include "platform/Clock.h"
#include "platform/Database.h"
#include "platform/Doors.h"
#include "platform/FileDialog.h"
#include "platform/GivenFile.h"
#include "platform/MSComm.h"
#include "platform/MsgBox.h"
#include "platform/OwnersFiles.h"
#include "platform/ProgressWindow.h"
#include "platform/SerialDevice.h"
#include "platform/SettingsStore.h"
#include "platform/Shell.h"
#include "platform/TimeOfDay.h"
#include "share/PortShare.h"
#include "share/ShareEntry.h"
#include "terminal/Terminal.h"
#include "terminal/ToolWindows.h"

namespace korvex {

/// The machine that the program runs on: real, or played by a test.
struct Machine {
    Clock& clock;
    SerialPorts& ports;
    SettingsStore& settings;
    FileDialog& fileDialog;
    MsgBox& msgBox;
    Shell& shell;
    Database& database;
    std::string programFolder;  ///< UTF-8; holds `files`, `helpfile` and the description database
    std::function<std::string()> timeOfDay = localTimeOfDay;
    std::string shippedDescriptions = {};  ///< the description database that came with the program, if any
    Backup::Checksum checksum = {};        ///< the SHA-256 of what a file holds, in hexadecimal digits
    Doors* doors = nullptr;                ///< ways in for other programs, where there are any
    RunChildProgram runChildProgram = {};  ///< null where programs of others cannot be run
};

/// Makes the parts of the program and introduces them to each other. It owns all logic; windows are made by whoever
/// shows them, and korvexctl uses the same object without any.
class Program {
public:
    explicit Program(Machine machine);

    Machine& machine() { return m_machine; }

    ToolWindows windows;
    ProgressWindow progress;
    MSComm MSComm1;
    CatLink link;
    GivenFile fileDialog;
    OwnersDesk desk;
    OwnersFiles files;  ///< the menus and memories
    Terminal terminal;
    MenuSave menuSave;
    MenuWriter menuWriter;
    MenuRestore menuRestore;
    MemoryManager memory;
    ListTables listTables;
    MenuManager menuManager;
    EqWindow eqWindow;
    BandStackWindow bandStackWindow;
    KeyerWindow keyerWindow;
    KindTransfers transfers;
    Backup backup;
    Restore restore;
    RadioCheck radioCheck;
    CheckEntry checkEntry;
    BackupEntry backupEntry;
    RestoreEntry restoreEntry;
    PortShare share;
    ShareEntry shareEntry;
    StartWindow startWindow;
    FileOpener opener;

    /// The logic of one opening of the port settings dialog.
    PortSettings makePortSettings();
    /// The dialog has stored what it applied to the terminal's port: the equalizer's port is set from the same keys.
    void portSettingsStored();

    /// Ends the program: output drains, the port closes, every window is unloaded. False when the user stays.
    bool end();
    /// The desktop's session is about to end: whether it may, as far as the program is concerned. Where the program may
    /// ask it asks about what is unsaved. The end itself, which comes soon after, then asks nothing more.
    bool mayEndSession(bool mayAsk);
    Signal<> unloadingWindows;  ///< windows store their places, the last loaded first
    Signal<> ended;

private:
    StartWindowCalls startWindowCalls();
    void announceTools();
    void introduceMemories();
    void introduceEqualizer();
    void introduceMenuManager();
    void introduceBandStack();
    void introduceKeyer();
    void introduceKnownRadio();
    std::string whyNoBackup();
    std::vector<FileOpener::Way> waysToOpen();
    void forgetRadio();
    StartWindow::Tool toolForMenu(const std::string& file);
    void loadMenu(const std::string& file);
    void proposeToRestore(const std::string& file, const std::string& kind, const std::string& entry);
    WindowState* toolWindow(int tool);
    void openTool(int tool);
    void showTool(int tool);
    bool mayEnd();

    Machine m_machine;
    std::int64_t m_sessionEndsBefore = 0;  // by the clock; it may also have been stopped by another program
    Connections m_connections;
};

}  // namespace korvex
