#pragma once

#include <string>
#include <vector>

#include "platform/SettingsStore.h"

/// The owner's files that were read or written last, UTF-8, the newest first; kept in the settings.
namespace korvex::recentfiles {

inline constexpr std::size_t most = 8;

std::vector<std::string> list(const SettingsStore& settings);
/// Comes to the front, wherever it stood before.
void add(SettingsStore& settings, const std::string& file);

}  // namespace korvex::recentfiles
