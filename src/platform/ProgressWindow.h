#pragma once

#include <string>

#include "base/Property.h"

namespace korvex {

/// The one small progress window that all transfers share, as values: the window shows them.
struct ProgressWindow {
    Property<std::string> caption{"Progress"};  ///< UTF-8
    Property<int> maximum{100};
    Property<int> value{0};
    Property<std::string> detail;       ///< "item 34 of 149, about 12 s left", UTF-8
    Property<bool> cancellable{false};  ///< what is shown can be cancelled
    Property<bool> visible{false};

    /// The user has had enough: Cancel, Escape or the close box.
    Signal<> cancelled;

    void show() { visible.set(true); }
    void hide() { visible.set(false); }
};

}  // namespace korvex
