#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "base/Property.h"
#include "cat/CatLink.h"
#include "cat/Outcome.h"
#include "cat/PhaseFlag.h"
#include "platform/Clock.h"
#include "platform/FileDialog.h"
#include "platform/MsgBox.h"
#include "platform/SettingsStore.h"
#include "platform/Shell.h"
#include "terminal/ToolWindows.h"

namespace korvex {

/// What the terminal needs of the machine.
struct TerminalNeeds {
    CatLink& link;
    Clock& clock;
    SettingsStore& settings;
    FileDialog& fileDialog;
    MsgBox& msgBox;
    Shell& shell;
    ToolWindows& windows;
    std::string programFolder;  ///< UTF-8, without a slash at the end
};

/// The titles of the boxes for file errors. They differ a little from operation to operation.
struct FileErrorTitles {
    std::string_view pathNotFound = "Path wrong";
    std::string_view fileNotFound = "File not found";
    std::string_view pathFileAccess = "Path wrong";
};

/// The logic of the terminal window: typed commands, the remembered save path, the way to the tools, and the end of the
/// program. The traffic itself is the link's.
class Terminal {
public:
    explicit Terminal(TerminalNeeds needs);

    /// Once, when the window is first needed: port configuration and the set-up note. A stored port setting that is
    /// refused is told in a box and leaves the rest undone.
    void Form_Load();
    /// The window is about to go for good. False when the user keeps it because output has not left yet.
    bool Form_Unload();

    /// A typed character (UTF-8) or "\r" for Enter. What Windows-1252 cannot express is refused with a hint in the
    /// panel "Error". Enter sends what was typed, without the Enter, if the port is open.
    void term3_KeyPress(std::string_view character);
    /// Takes back the last typed character, or the Enter that did not send because the port was closed.
    void term3_Backspace();
    /// Typed as a whole; line ends in it are dropped, so that nothing is sent before Enter.
    void term3_Paste(std::string_view utf8);
    void cmd3_Click();

    void mnu_print_Click();
    void mnu_exit_Click() { m_needs.windows.terminal.hide(); }
    void mnu_bandStack_Click();
    void mnu_description_Click();
    void mnu_memory_Click();
    void mnu_equalizer_Click();
    void mnu_keyer_Click();
    /// Another tool has been picked before the switch to the equalizer came about.
    void forgetEqualizerSwitch() { m_timer10->setEnabled(false); }

    Property<std::string> Label1;   ///< the transmit buffer, wire text: typed and not yet sent
    Property<std::string> txtPath;  ///< the remembered save path, UTF-8

    CatLink& link() { return m_needs.link; }
    MsgBox& msgBox() { return m_needs.msgBox; }
    /// Asks for a file to read, starting from the remembered path; a chosen file that is there becomes the remembered
    /// one.
    std::optional<std::string> askForFile(FileDialogRequest request);
    /// Asks for a file to write, starting from the remembered path, and writes it. A failure is told and another name
    /// asked for; only a file that was written becomes the remembered one.
    Outcome::Kind saveFile(FileDialogRequest request, std::string_view content, const FileErrorTitles& titles = {},
                           const std::function<bool(const std::string& file)>& mayReplace = {});
    /// Tells a file error in a box whose title is chosen by the error number.
    void tellFileError(const RuntimeError& error, const FileErrorTitles& titles = {});
    /// Tells in the panel and in a box why a file, which is none of its kind ("menu"), is not restored.
    void refuseFile(const std::string& file, const std::string& kind, const std::string& why, const std::string& title);

    /// The echo option: kept and stored, used by nobody yet.
    bool echo = false;

private:
    void refuse(std::string_view character);
    void Timer10_Timer();

    TerminalNeeds m_needs;
    bool m_loaded = false;
    std::unique_ptr<Timer> m_timer10;
    PhaseFlag m_timer10Phase;
    Connections m_connections;
};

}  // namespace korvex
