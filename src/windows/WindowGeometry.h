#pragma once

#include <string_view>
#include <vector>

#include "platform/SettingsStore.h"

namespace korvex {

/// Where a window stands and how large it is, in twips (15 to a pixel).
struct WindowPlace {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    bool operator==(const WindowPlace&) const = default;
};

/// How a window remembers its place: keys made of a prefix and "Left", "Top", "Width", "Height".
struct WindowGeometry {
    std::string_view prefix;
    WindowPlace atFirst;     ///< for every value that is missing or makes no sense
    WindowPlace afterMinus;  ///< for all four, when the stored left or top begins with "-"
    bool keepsWidth = true;
    bool keepsHeight = true;

    WindowPlace load(const SettingsStore& store) const;
    /// Whether `load` gives a place that the user has chosen, and not one of ours.
    bool isRemembered(const SettingsStore& store) const;
    /// Whether there is any place in the store, be it one that `load` does not give.
    bool isStored(const SettingsStore& store) const;
    void save(SettingsStore& store, const WindowPlace& place) const;
};

/// A remembered place can lie where no screen is any more. The place itself while its title bar can be grasped on one
/// of the screens (twips too; the first is the main one), else one on the main screen. Never larger than its screen.
WindowPlace broughtIntoSight(WindowPlace place, const std::vector<WindowPlace>& screens);
/// The same for a place that nobody has chosen: the whole window is in sight.
WindowPlace broughtWhollyIntoSight(WindowPlace place, const std::vector<WindowPlace>& screens);

inline constexpr int twipsPerPixel = 15;
constexpr int pixelsFromTwips(int twips) {
    return (twips + twipsPerPixel / 2) / twipsPerPixel;
}
constexpr int twipsFromPixels(int pixels) {
    return pixels * twipsPerPixel;
}

/// The first places fit a screen of 1024 x 768. The start window and the terminal are to be seen beside the tool that
/// was picked, and no two windows have their titles in one place.
namespace geometry {
inline constexpr WindowGeometry startWindow{"Utilities", {3000, 3000, 6165, 7725}, {2000, 2000, 6165, 7725}};
inline constexpr WindowGeometry terminal{"Term", {1000, 1000, 6500, 8500}, {1000, 1000, 6500, 8500}};
inline constexpr WindowGeometry memoryEditor{"Memory", {8550, 1700, 6165, 6630}, {2000, 2000, 6000, 6500}};
inline constexpr WindowGeometry memoryList{"Channelinfo", {4000, 4000, 6500, 8500}, {2000, 2000, 6000, 6500}};
inline constexpr WindowGeometry menuManager{"frmDescription", {8625, 1100, 6500, 6500}, {1000, 1000, 6500, 6500}};
inline constexpr WindowGeometry equalizer{"frmEQ_Set", {8600, 500, 6500, 8500}, {1000, 1000, 6555, 5500}};
/// Its height follows from its rows.
inline constexpr WindowGeometry bandStack{"BandStack", {8500, 2300, 6165, 7000}, {2000, 2000, 6165, 7000}, true, false};
/// Its size follows from its grid.
inline constexpr WindowGeometry keyer{"Keyer", {4500, 1500, 10455, 4335}, {1000, 1000, 10455, 4335}, false, false};
}  // namespace geometry

}  // namespace korvex
