#pragma once

#include <array>

#include "base/Property.h"

namespace korvex {

/// A window as the logic sees it: whether it can be opened at all, whether it is to be seen, and the wish that it come
/// to the front in normal size. The window itself, made on first use, follows.
struct WindowState {
    Property<bool> available{false};  ///< entries and buttons of a tool that is not there stand disabled
    Property<bool> visible{false};
    Signal<> restored;  ///< back to normal size and to the front

    void show() {
        visible.set(true);
        restored.emit();
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
