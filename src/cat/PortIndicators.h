#pragma once

#include <string>

#include "base/Property.h"

namespace korvex {

/// What the windows show of the port's state. The link writes it; each window shows its own part, when it exists.
struct PortIndicators {
    /// Check marks, connect pictures, the radio entries of every menu, the terminal's first four toolbar buttons, and
    /// the editor's green or red buttons follow this one value.
    Property<bool> open{false};

    Property<std::string> clickLabel{"click to open"};  ///< `Label3` beside the connect pictures
    Property<std::string> bandStack;                    ///< band stack window, panel "portinfo"
    Property<std::string> menuManager;                  ///< Menu Manager, panel "portstatus"
    Property<std::string> memoryEditor;                 ///< memory editor, panel "Port"

    /// Set by the editor's window: its panel is brought up to date at opening only while it can be seen.
    Property<bool> memoryEditorVisible{false};
};

}  // namespace korvex
