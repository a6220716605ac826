#include "app/StartWindow.h"

namespace korvex {

StartWindow::StartWindow(Clock& clock, StartWindowCalls calls)
    : m_calls(std::move(calls)), m_timer3(clock.makeTimer()) {
    Form_Resize();
    m_timer3->setInterval(150);
    m_tick = m_timer3->tick.connect([this] { Timer3_Timer(); });
}

void StartWindow::Command1_Click(int index) {
    if (!m_calls.mayOpen(index)) return;
    for (int tool = 0; tool < toolCount; ++tool) backColor(tool) = tool == index ? lightGreen : lightOrange;
    m_calls.closeEqualizerPort();
    m_calls.hideTools();
    m_picked = index;
    m_timer3->setEnabled(true);
}

void StartWindow::Timer3_Timer() {
    if (m_timer3Flag.isSet()) {
        // Stopped first: a tool may show a box while it opens, and a tick must not open it a second time.
        m_timer3->setEnabled(false);
        m_calls.openTool(m_picked);
    }
    m_timer3Flag.invert();
}

void StartWindow::mnuHelp_Click() {
    m_calls.openHelp();
}

void StartWindow::Form_Resize() {
    for (auto& color : m_backColors) color = lightOrange;
}

bool StartWindow::Form_Unload() {
    return m_calls.unloadOtherWindows();
}

}  // namespace korvex
