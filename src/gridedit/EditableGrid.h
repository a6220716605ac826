#pragma once

#include <memory>
#include <string>

#include "base/Signal.h"
#include "gridedit/EditBox.h"
#include "platform/MSFlexGrid.h"

namespace korvex {

/// A grid together with the window that it stands on, as a cell editor needs them.
class EditableGrid {
public:
    virtual ~EditableGrid() = default;

    virtual MSFlexGrid& cells() = 0;
    /// A new hidden box on the window, in front of everything, with a name that no other control there has:
    /// "tbFgEdit1", with one more "1" while that is taken. `events` must outlive it.
    virtual std::unique_ptr<EditBox> makeEditBox(EditBoxEvents& events) = 0;

    virtual void giveFocus() = 0;
    virtual bool isCurrentInSight() const = 0;
    virtual void bringCurrentIntoSight() = 0;
    /// Says next to the current cell why something was not taken.
    virtual void showHint(const std::string& utf8) = 0;

    /// Keeps how every control of the window answers to Tab, and lets none of them answer.
    virtual void takeTabStops() = 0;
    virtual void restoreTabStops() = 0;

    Signal<> doubleClicked;
    Signal<const std::string&> keyPressed;  ///< what was typed on the grid (UTF-8), control characters too
    Signal<> gotFocus;
    Signal<> scrolled;       ///< the cells lie elsewhere on the window now
    Signal<> windowClosing;  ///< the window closes or is being hidden
};

}  // namespace korvex
