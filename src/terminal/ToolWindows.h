#pragma once

#include <array>

#include "base/Property.h"

namespace korvex {

/// A window as the logic sees it: whether it can be opened at all, whether it is to be seen, and whether that is to be
/// in front. The window itself, made on first use, follows.
struct WindowState {
    Property<bool> available{false};  ///< entries and buttons of a tool that is not there stand disabled
    Property<bool> visible{false};
    Signal<> restored;     ///< to be seen in normal size, in front and with the keyboard
    Signal<> shownBehind;  ///< to be seen, the keyboard stays where it is

    void show() {
        visible.set(true);
        restored.emit();
    }
    /// For a window that comes along with the one that was asked for. Show that one after it.
    void showBehind() {
        visible.set(true);
        shownBehind.emit();
    }
    void hide() { visible.set(false); }
};

/// Every window that the start window and the terminal open and close.
struct ToolWindows {
    WindowState terminal;
    WindowState memoryEditor;
    WindowState memoryList;
    WindowState menuManager;
    WindowState equalizer;
    WindowState bandStack;
    WindowState keyer;

    void hideAll() {
        const std::array<WindowState*, 7> all = {&terminal,    &bandStack, &memoryEditor, &memoryList,
                                                 &menuManager, &equalizer, &keyer};
        for (WindowState* window : all) window->hide();
    }
};

}  // namespace korvex
