#include "app/Program.h"

#include <utility>

#include "app/HelpPage.h"
#include "backup/MenuTitles.h"
#include "memory/UnsavedList.h"
#include "platform/ProgramFolder.h"
#include "platform/TextFile.h"

namespace korvex {

Program::Program(Machine machine)
    : MSComm1(machine.ports),
      link(MSComm1, machine.clock, machine.msgBox, progress),
      fileDialog(machine.fileDialog),
      desk{machine.settings, fileDialog, machine.msgBox, machine.programFolder},
      files(desk, keys::savePath),
      terminal({link, machine.clock, machine.settings, files, machine.shell, windows}),
      menuSave(link, files),
      menuWriter(link),
      menuRestore(link, files, menuWriter),
      memory(link, machine.clock, files, desk),
      listTables(memory.list, memory.listEdits.told, desk),
      menuManager({link, machine.clock, desk, files, machine.database, windows.menuManager.visible,
                   machine.shippedDescriptions, machine.timeOfDay, machine.runChildProgram}),
      eqWindow(machine.ports, machine.clock, desk),
      bandStackWindow(link, machine.clock, desk),
      keyerWindow(link, desk),
      transfers(link, files, machine.clock),
      backup(link, transfers, machine.clock, machine.checksum),
      restore(link, backup, transfers, machine.clock),
      radioCheck(link, machine.timeOfDay),
      checkEntry({radioCheck, machine.clock, desk, [this] { return whyNoBackup(); }, [this] { return link.freeLine(); },
                  [this] { return link.known().isChecked(); }}),
      backupEntry({backup, machine.clock, desk, machine.timeOfDay, [this] { return whyNoBackup(); },
                   [this] { return link.freeLine(); },
                   [this](std::function<void()> afterwards) { return checkEntry.propose(std::move(afterwards)); }}),
      restoreEntry({link, restore, machine.clock, desk, machine.checksum, machine.timeOfDay,
                    [this] { return whyNoBackup(); },
                    [this] {
                        return titlesFrom(m_machine.database,
                                          m_machine.programFolder + "/" + std::string(descriptionDatabaseName));
                    }}),
      share(link, machine.clock, machine.doors),
      shareEntry({link, share, machine.settings, machine.msgBox}),
      startWindow(machine.clock, startWindowCalls()),
      opener(
          desk, [this](StartWindow::Tool tool) { startWindow.Command1_Click(tool); }, waysToOpen()),
      m_machine(std::move(machine)) {
    announceTools();
    introduceMemories();
    introduceEqualizer();
    introduceMenuManager();
    introduceBandStack();
    introduceKeyer();
    introduceKnownRadio();
}

PortSettings Program::makePortSettings() {
    eqWindow.closePort();  // looking for ports would find its own in use
    return {link, m_machine.clock, m_machine.ports, m_machine.settings, m_machine.msgBox, terminal.echo};
}

void Program::portSettingsStored() {
    eqWindow.closePort();
    eqWindow.Form_Load(m_machine.settings);
}

StartWindowCalls Program::startWindowCalls() {
    return {
        .closeEqualizerPort = [this] { eqWindow.closePort(); },
        .hideTools =
            [this] {
                terminal.forgetEqualizerSwitch();
                windows.hideAll();
            },
        .mayOpen = [this](int tool) { return tool != StartWindow::Equalizer || link.freeLine(); },
        .openTool = [this](int tool) { openTool(tool); },
        .openHelp =
            [this] {
                // The page or the browser missing is the browser's to tell.
                static_cast<void>(m_machine.shell.openBrowser(helpPage(m_machine.programFolder).string()));
            },
        .unloadOtherWindows = [this] { return end(); },
    };
}

WindowState* Program::toolWindow(int tool) {
    switch (tool) {
        case StartWindow::MemoryManager: return &windows.memoryEditor;
        case StartWindow::MenuManager: return &windows.menuManager;
        case StartWindow::Equalizer: return &windows.equalizer;
        case StartWindow::BandStack: return &windows.bandStack;
        case StartWindow::Keyer: return &windows.keyer;
        default: return &windows.terminal;
    }
}

void Program::announceTools() {
    windows.terminal.available = true;
    for (int tool = 0; tool < StartWindow::toolCount; ++tool) {
        m_connections += toolWindow(tool)->available.bind(
            [this, tool](bool available) { startWindow.enabled.at(static_cast<std::size_t>(tool)) = available; });
    }
}

void Program::introduceMemories() {
    windows.memoryEditor.available = true;
    m_connections += memory.buttonBackToNormal.connect([this] { startWindow.markClosed(StartWindow::MemoryManager); });
    m_connections += restore.ended.connect([this](const Outcome& outcome) {
        if (!outcome.isDone() || !restore.report().empty()) forgetRadio();
    });
}

/// A restore of the whole radio has gone past the windows.
void Program::forgetRadio() {
    memory.list.forgetRadio();
    menuManager.forgetRadio();
}

void Program::introduceEqualizer() {
    windows.equalizer.available = true;
    eqWindow.exchange().pace = [this] { return link.pace.get(); };
    // Both ports are set to the same device: whoever opens takes it from the other.
    m_connections += link.opening.connect([this] { eqWindow.closePort(); });
    eqWindow.mayTakePort = [this] { return link.freeLine(); };
    m_connections += eqWindow.exchange().beforeOpen.connect([this] { link.closePort(); });
    m_connections += eqWindow.showTerminal.connect([this] { windows.terminal.showBehind(); });
    m_connections += eqWindow.hide.connect([this] { windows.equalizer.hide(); });
    m_connections += eqWindow.buttonBackToNormal.connect([this] { startWindow.markClosed(StartWindow::Equalizer); });
}

void Program::introduceBandStack() {
    windows.bandStack.available = true;
    m_connections += bandStackWindow.hideTerminal.connect([this] { windows.terminal.hide(); });
    m_connections += bandStackWindow.hide.connect([this] { windows.bandStack.hide(); });
    m_connections +=
        bandStackWindow.buttonBackToNormal.connect([this] { startWindow.markClosed(StartWindow::BandStack); });
}

void Program::introduceKeyer() {
    windows.keyer.available = true;
    m_connections += keyerWindow.hide.connect([this] { windows.keyer.hide(); });
    m_connections += keyerWindow.buttonBackToNormal.connect([this] { startWindow.markClosed(StartWindow::Keyer); });
}

void Program::introduceKnownRadio() {
    link.remember(readKnownRadio(m_machine.settings));
    const auto store = [this](const KnownRadio& radio) { writeKnownRadio(m_machine.settings, radio); };
    m_connections += link.knownChanged.connect(store);
    m_connections += radioCheck.ended.connect([this, store](const Outcome& outcome) {
        if (!outcome.isDone()) return;
        link.remember(radioCheck.learned());
        store(radioCheck.learned());
    });
    eqWindow.whyNotThisRadio = [this](const std::string& device) -> std::string {
        const KnownRadio radio = link.knownAt(device);
        if (!radio.hasEarlyMenuNumbers && !radio.hasOtherEqualizer) return {};
        return "The check of " + radio.checked +
               " has found that this radio's menu 125 to 142 are not the equalizer as Korvex knows it. The port stays "
               "closed: a slider would change something else.";
    };
}

std::string Program::whyNoBackup() {
    if (eqWindow.isPortOpen()) {
        return "The equalizer has the port. Please open the terminal's port, which takes it back.";
    }
    if (!link.PortOpen()) return "The port is closed. Please open it first.";
    return {};
}

std::vector<FileOpener::Way> Program::waysToOpen() {
    using Load = std::function<void(const std::string&)>;
    const auto given = [this](auto load) -> Load {
        return [this, load](const std::string& file) { fileDialog.answering(file, load); };
    };
    return {
        {"mnu", StartWindow::Terminal, [this](const std::string& file) { loadMenu(file); },
         [this](const std::string& file) { return toolForMenu(file); }},
        {"mem", StartWindow::Terminal,
         [this](const std::string& file) { proposeToRestore(file, "memory", "Restore Memories to FT2000"); }},
        {"mef", StartWindow::MemoryManager, given([this] { memory.listFiles.loadListFile(); })},
        {"csv", StartWindow::MemoryManager, given([this] { listTables.importTable(); })},
        {"bsr", StartWindow::BandStack, given([this] { bandStackWindow.mnu_loadDatafromHD_Click(); })},
        {"kem", StartWindow::Keyer, given([this] { keyerWindow.mnu_LoadKeyer_Click(); })},
        {"eqp", StartWindow::Equalizer, given([this] { eqWindow.mnu_LoadPreset_Click(); })},
    };
}

/// Whoever has the Menu Manager open wants to see it there.
StartWindow::Tool Program::toolForMenu(const std::string& file) {
    const auto content = textfile::read(file);
    const auto items = content ? fileKind("menu")->items(*content) : content.error();
    if (!items) return StartWindow::Terminal;  // which tells why
    if (windows.menuManager.visible) return StartWindow::MenuManager;
    const auto answer = desk.msgBox.show(
        {file.substr(file.rfind('/') + 1) + " holds " + fileKind("menu")->holds(*items, 0) +
             ".\n\nShow them in a settings column of the Menu Manager? \"No\" makes them ready for \"Restore Menu to "
             "FT2000\" in the terminal. Neither writes into the radio.",
         "", MsgIcon::Question, MsgButtons::YesNo});
    return answer == MsgAnswer::Yes ? StartWindow::MenuManager : StartWindow::Terminal;
}

void Program::loadMenu(const std::string& file) {
    if (!windows.menuManager.visible) return proposeToRestore(file, "menu", "Restore Menu to FT2000");
    menuManager.whenFilled([this, file] {
        menuManager.selectEmptyColumn();
        fileDialog.answering(file, [this] { menuManager.mnu_loadColumn_Click(); });
    });
}

/// All memories are for the radio alone, and so may be a whole menu. It is looked at, and stands ready where the entry
/// that writes it asks for its file.
void Program::proposeToRestore(const std::string& file, const std::string& kind, const std::string& entry) {
    const auto content = textfile::read(file);
    if (!content) return files.tell(content.error());
    const auto items = fileKind(kind)->items(*content);
    if (!items) return desk.msgBox.exclamation(file + ": " + items.error().text);
    files.remember(file);
    const std::string name = file.substr(file.rfind('/') + 1);
    link.panels().Error = name + ": " + fileKind(kind)->holds(*items, 0) + ". \"" + entry + "\" writes them.";
}

void Program::introduceMenuManager() {
    windows.menuManager.available = true;
    m_connections += menuWriter.ended.connect([this](const Outcome&) { menuManager.forgetRadio(); });
    m_connections += menuManager.hide.connect([this] { windows.menuManager.hide(); });
    m_connections +=
        menuManager.buttonBackToNormal.connect([this] { startWindow.markClosed(StartWindow::MenuManager); });
}

void Program::openTool(int tool) {
    terminal.Form_Load();
    shareEntry.recall();
    showTool(tool);
    opener.toolOpened(tool);
}

void Program::showTool(int tool) {
    if (tool == StartWindow::Equalizer) return terminal.mnu_equalizer_Click();
    // The terminal comes along first and without the keyboard: window managers take the windows in this order.
    if (tool != StartWindow::Terminal) windows.terminal.showBehind();
    switch (tool) {
        case StartWindow::MemoryManager: terminal.mnu_memory_Click(); break;
        case StartWindow::MenuManager: terminal.mnu_description_Click(); break;
        case StartWindow::BandStack: terminal.mnu_bandStack_Click(); break;
        case StartWindow::Keyer: terminal.mnu_keyer_Click(); break;
        default: windows.terminal.show(); break;
    }
}

bool Program::mayEndSession(bool mayAsk) {
    constexpr std::int64_t soonMs = 60'000;
    using Reason = DescriptionDatabase::UnloadReason;
    const bool mayEnd = !mayAsk || (mayLoseEdits(memory.list, m_machine.msgBox) &&
                                    menuManager.database().Form_QueryUnload(Reason::SessionEnd));
    m_sessionEndsBefore = mayEnd ? m_machine.clock.now() + soonMs : 0;
    return mayEnd;
}

bool Program::mayEnd() {
    return mayLoseEdits(memory.list, m_machine.msgBox) && menuManager.mayLoseEdits() && link.freeLine();
}

bool Program::end() {
    const bool withSession = m_machine.clock.now() < m_sessionEndsBefore;
    if (!withSession && !mayEnd()) return false;
    link.breakOff(Outcome::Kind::Cancelled, CatLink::For::Another);
    if (!terminal.Form_Unload()) return false;
    if (!withSession) backupEntry.tellNow();
    eqWindow.closePort();
    unloadingWindows.emit();
    ended.emit();
    return true;
}

}  // namespace korvex
