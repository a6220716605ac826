#pragma once

#include <array>
#include <functional>
#include <memory>
#include <string_view>

#include "base/Property.h"
#include "cat/PhaseFlag.h"
#include "platform/Clock.h"

namespace korvex {

/// What the start window has the rest of the program do.
struct StartWindowCalls {
    std::function<void()> closeEqualizerPort;
    std::function<void()> hideTools;
    /// Whether the tool may be opened now: the person may want what is going on to go on.
    std::function<bool(int tool)> mayOpen;
    std::function<void(int tool)> openTool;
    std::function<void()> openHelp;
    /// Unloads every other window; false when the user chose to stay.
    std::function<bool()> unloadOtherWindows;
};

/// The window that the user picks a tool from.
class StartWindow {
public:
    enum Tool { Terminal, MemoryManager, MenuManager, Equalizer, BandStack, Keyer };
    static constexpr int toolCount = 6;
    static constexpr std::array<std::string_view, toolCount> captions{
        "Menu and Memory Saver ",    "Memory Manager", "Menu Manager", "Equalizer Adjustment",
        "Band Stack Register Saver", "Keyer Memory"};

    static constexpr int lightOrange = 0x80C0FF;  ///< 0xBBGGRR
    static constexpr int lightGreen = 0x80FF80;   ///< the tool in use

    StartWindow(Clock& clock, StartWindowCalls calls);

    /// Disabled until a tool is there to be opened.
    std::array<Property<bool>, toolCount> enabled{};
    const Property<int>& backColor(int tool) const { return m_backColors.at(static_cast<std::size_t>(tool)); }
    Property<int>& backColor(int tool) { return m_backColors.at(static_cast<std::size_t>(tool)); }

    /// Puts the tool in use away at once; the picked one comes on the next working tick.
    void Command1_Click(int index);
    void mnuHelp_Click();

    /// The green mark is lost when the window is resized.
    void Form_Resize();
    /// False when the user chose to stay.
    bool Form_Unload();

    /// A tool that was closed by its own menu takes its mark back.
    void markClosed(Tool tool) { backColor(tool) = lightOrange; }

private:
    void Timer3_Timer();

    StartWindowCalls m_calls;
    std::array<Property<int>, toolCount> m_backColors;
    int m_picked = 0;
    PhaseFlag m_timer3Flag;
    std::unique_ptr<Timer> m_timer3;
    Connection m_tick;
};

}  // namespace korvex
