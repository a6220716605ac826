#pragma once

#include <string>

#include "platform/SettingsStore.h"

namespace korvex {

/// The owner's files are in another program folder than before: paths that lead into "files" of the former one lead
/// into that of the new one. Does nothing when there was no former one.
void rememberNewFolder(SettingsStore& settings, const std::string& former, const std::string& folder);

}  // namespace korvex
