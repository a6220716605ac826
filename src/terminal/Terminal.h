#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "base/Property.h"
#include "cat/CatLink.h"
#include "cat/PhaseFlag.h"
#include "platform/Clock.h"
#include "platform/OwnersFiles.h"
#include "platform/SettingsStore.h"
#include "platform/Shell.h"
#include "terminal/ToolWindows.h"
#include "terminal/TypedCommands.h"

namespace korvex {

/// What the terminal needs of the machine.
struct TerminalNeeds {
    CatLink& link;
    Clock& clock;
    SettingsStore& settings;
    OwnersFiles& files;  ///< the menus and memories
    Shell& shell;
    ToolWindows& windows;
};

/// The logic of the terminal window: typed commands, the way to the tools, and the end of the program. The traffic
/// itself is the link's.
class Terminal {
public:
    explicit Terminal(const TerminalNeeds& needs);

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
    /// "Fast verified Transfers": on or off for what begins from now on, and remembered.
    void mnu_fastTransfers_Click();
    void mnu_bandStack_Click();
    void mnu_description_Click();
    void mnu_memory_Click();
    void mnu_equalizer_Click();
    void mnu_keyer_Click();
    /// Another tool has been picked before the switch to the equalizer came about.
    void forgetEqualizerSwitch() { m_timer10->setEnabled(false); }

    Property<std::string> transmitBuffer;  ///< the transmit buffer, wire text: typed and not yet sent

    CatLink& link() { return m_needs.link; }
    OwnersFiles& files() { return m_needs.files; }

    /// The echo option: kept and stored, used by nobody yet.
    bool echo = false;

private:
    void refuse(std::string_view character);
    void onCame(std::string_view wire);
    void Timer10_Timer();

    TerminalNeeds m_needs;
    bool m_loaded = false;
    TypedCommands m_typedLast;  // sent from here, while answers to it may still come
    std::unique_ptr<Timer> m_timer10;
    PhaseFlag m_timer10Phase;
    Connections m_connections;
};

}  // namespace korvex
