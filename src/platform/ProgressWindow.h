#pragma once

#include <string>

#include "base/Property.h"

namespace korvex {

/// The one small progress window that all transfers share, as values: the window shows them.
struct ProgressWindow {
    Property<std::string> caption{"Progress"};  ///< UTF-8
    Property<int> maximum{100};
    Property<int> value{0};
    Property<bool> visible{false};

    void show() { visible.set(true); }
    void hide() { visible.set(false); }
};

}  // namespace korvex
