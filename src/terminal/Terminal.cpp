#include "terminal/Terminal.h"

#include <utility>

#include "base/CodePage.h"
#include "base/Lines.h"
#include "cat/PortConfiguration.h"
#include "platform/Settings.h"

namespace korvex {

namespace {

constexpr std::string_view setUpNote =
    "\r\n- Select the Serial Port you are using for the"
    "\r\n  communication with the FT-2000"
    "\r\n- Select the speed equal to the settings in menu 28"
    "\r\n  of the FT-2000."
    "\r\n- Set menu 29 to (10) "
    "\r\n- Set RTS in menu 30 of FT-2000 to (OFF)."
    "\r\n  If RST is (ON), the Communication will be blocked.";

constexpr std::string_view refusedText = "The radio refused ";

}  // namespace

Terminal::Terminal(const TerminalNeeds& needs) : m_needs(needs), m_timer10(m_needs.clock.makeTimer()) {
    m_timer10->setInterval(200);
    m_connections += m_timer10->tick.connect([this] { Timer10_Timer(); });
    m_connections += m_needs.link.came.connect([this](std::string_view wire) { onCame(wire); });
}

void Terminal::Form_Load() {
    if (std::exchange(m_loaded, true)) return;
    m_needs.link.clearTraffic();
    m_needs.files.recall();
    if (readSetting(m_needs.settings, keys::fastTransfers)) m_needs.link.pace = Pace::Answered;
    if (const auto failure = applyStoredPort(m_needs.settings, m_needs.link.port())) {
        m_needs.files.msgBox().exclamation(failure->text);
        return;
    }
    echo = readSetting(m_needs.settings, keys::echo);
    m_needs.link.received().set(setUpNote);
}

bool Terminal::Form_Unload() {
    if (!m_needs.link.drainAndClose()) return false;
    m_needs.windows.bandStack.hide();
    if (m_loaded) m_needs.files.store();
    return true;
}

void Terminal::refuse(std::string_view character) {
    m_needs.link.panels().Error = "\"" + std::string(character) + "\" is not in the radio's character set";
}

void Terminal::term3_KeyPress(std::string_view character) {
    const bool enter = character == "\r";
    const auto wire = wireFromUtf8(character);
    if (!wire) {
        refuse(character);
        return;
    }
    m_needs.link.sent().append(enter ? crLf : *wire);
    if (enter && m_needs.link.PortOpen()) {
        const std::string line = transmitBuffer;
        m_typedLast = TypedCommands(line);
        if (m_needs.link.panels().Error.get().starts_with(refusedText)) m_needs.link.panels().Error = "";
        m_needs.link.send(line);
        transmitBuffer = "";
        return;
    }
    transmitBuffer = transmitBuffer.get() + *wire;
}

/// While nobody else has the line a refusal can only mean what was typed last.
void Terminal::onCame(std::string_view wire) {
    if (m_typedLast.empty()) return;
    if (m_needs.link.operation() || m_needs.link.testing()) {
        m_typedLast = {};
    } else if (m_typedLast.take(wire)) {
        const std::string refused = m_typedLast.refused();
        m_needs.link.panels().Error = refused.empty() ? "" : std::string(refusedText) + utf8FromWire(refused);
    }
}

void Terminal::term3_Backspace() {
    std::string typed = transmitBuffer;
    if (typed.empty()) return;
    const std::string shown = typed.back() == '\r' ? std::string(crLf) : typed.substr(typed.size() - 1);
    typed.pop_back();
    transmitBuffer = typed;
    m_needs.link.sent().dropLast(shown);
}

void Terminal::term3_Paste(std::string_view utf8) {
    std::string text;
    for (const char c : utf8) {
        if (c != '\r' && c != '\n') text += c;
    }
    if (const auto character = firstInexpressible(text)) {
        refuse(*character);
        return;
    }
    const std::string wire = *wireFromUtf8(text);
    m_needs.link.sent().append(wire);
    transmitBuffer = transmitBuffer.get() + wire;
}

void Terminal::cmd3_Click() {
    m_needs.link.panels().Error = "";
    m_needs.link.clearTraffic();
}

void Terminal::mnu_print_Click() {
    const auto file = m_needs.files.askToOpen({"Open File of FT-2000", "mnu"});
    if (!file) return;
    if (const auto failure = m_needs.shell.openTextEditor(*file)) return m_needs.files.tell(*failure);
    m_needs.files.remember(*file);
}

void Terminal::mnu_fastTransfers_Click() {
    const bool fast = m_needs.link.pace != Pace::Answered;
    m_needs.link.pace = fast ? Pace::Answered : Pace::Every100Ms;
    writeSetting(m_needs.settings, keys::fastTransfers, fast);
}

void Terminal::mnu_bandStack_Click() {
    m_needs.windows.bandStack.show();
    m_needs.link.indicators().bandStack = m_needs.link.PortOpen() ? "RS232 open" : "RS232 closed";
}

void Terminal::mnu_description_Click() {
    m_needs.windows.menuManager.show();
    m_needs.link.indicators().menuManager = m_needs.link.PortOpen() ? "RS232 open " : "RS232 closed ";
}

void Terminal::mnu_memory_Click() {
    m_needs.windows.memoryList.showBehind();
    m_needs.windows.memoryEditor.show();
    m_needs.link.indicators().memoryEditor = m_needs.link.PortOpen() ? "ComPort open" : "ComPort closed";
}

void Terminal::mnu_keyer_Click() {
    m_needs.windows.keyer.show();
}

void Terminal::mnu_equalizer_Click() {
    if (!m_needs.link.freeLine()) return;
    m_needs.link.closePort();
    m_timer10->setEnabled(true);
}

void Terminal::Timer10_Timer() {
    if (m_timer10Phase.isSet()) {
        m_needs.windows.terminal.hide();
        m_needs.windows.equalizer.show();
        m_timer10->setEnabled(false);
    }
    m_timer10Phase.invert();
}

}  // namespace korvex
