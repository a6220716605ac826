#pragma once

#include <string>

#include "base/Property.h"

namespace korvex {

/// The panels of the terminal's status bar, by key, in their order. UTF-8.
struct StatusPanels {
    Property<std::string> Status{"Status:"};      ///< the last comm event
    Property<std::string> Settings{"Settings:"};  ///< port and data format while open
    Property<std::string> Error;                  ///< progress and end of the operations
    Property<std::string> ConnectTime;            ///< how long the port has been open
};

}  // namespace korvex
