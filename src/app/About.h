#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "platform/MsgBox.h"
#include "platform/Shell.h"

namespace korvex::about {

inline constexpr std::string_view description =
    "Menu and Memory Saver     Memory Manager     Menu Manager     Equalizer Adjustment     "
    "Band Stack Register Saver";

/// UTF-8.
inline constexpr std::string_view disclaimer =
    "Dieses Programm ist ausschließlich für den Einsatz im Amateurfunk bestimmt und darf nicht kommerziell genutzt "
    "werden. Die Benutzung erfolgt auf eigene Gefahr; eine Haftung für Schäden jeder Art ist ausgeschlossen.";

/// " Release  1.0.0"
std::string versionLabel();

/// "Built: " and the day on which the program file was last written, in the user's time zone; without a day when the
/// file cannot be looked at.
std::string builtLabel(const std::filesystem::path& programFile);

void startSystemInfo(Shell& shell, MsgBox& msgBox);

}  // namespace korvex::about
