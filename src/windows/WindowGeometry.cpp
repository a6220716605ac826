#include "windows/WindowGeometry.h"

#include <algorithm>
#include <string>

#include "platform/Settings.h"

namespace korvex {

namespace {

constexpr int largest = 32'000 * twipsPerPixel;  // what window systems can address
constexpr int titleBar = 450;                    // height of what the user grasps a window by
constexpr int frame = 150;                       // what it adds to a window's width
constexpr int graspable = 900;                   // how much of its width must be in sight

std::string stored(const SettingsStore& store, std::string_view window, std::string_view edge) {
    return storedText(store, keys::place(window, edge));
}

int numberOr(const SettingsStore& store, const SettingsKey<int, std::string>& setting, int smallest) {
    const int number = readSetting(store, setting);
    return number >= smallest && number <= largest ? number : setting.fallback;
}

bool canBeGrasped(const WindowPlace& place, const WindowPlace& screen) {
    const int overlap =
        std::min(place.left + place.width, screen.left + screen.width) - std::max(place.left, screen.left);
    return overlap >= std::min(graspable, place.width) && place.top >= screen.top &&
           place.top + titleBar <= screen.top + screen.height;
}

void fitInto(int& start, int& length, int screenStart, int screenLength) {
    if (length <= screenLength) return;
    start = screenStart;
    length = screenLength;
}

}  // namespace

bool WindowGeometry::isRemembered(const SettingsStore& store) const {
    const std::string left = stored(store, prefix, "Left");
    return !left.empty() && !left.starts_with('-') && !stored(store, prefix, "Top").starts_with('-');
}

bool WindowGeometry::isStored(const SettingsStore& store) const {
    return !stored(store, prefix, "Left").empty() || !stored(store, prefix, "Top").empty();
}

WindowPlace WindowGeometry::load(const SettingsStore& store) const {
    for (const auto edge : {"Left", "Top"}) {
        if (stored(store, prefix, edge).starts_with('-')) return afterMinus;
    }
    WindowPlace place = atFirst;
    place.left = numberOr(store, keys::place(prefix, "Left", atFirst.left), 0);
    place.top = numberOr(store, keys::place(prefix, "Top", atFirst.top), 0);
    if (keepsWidth) place.width = numberOr(store, keys::place(prefix, "Width", atFirst.width), 1);
    if (keepsHeight) place.height = numberOr(store, keys::place(prefix, "Height", atFirst.height), 1);
    return place;
}

void WindowGeometry::save(SettingsStore& store, const WindowPlace& place) const {
    const auto put = [&](std::string_view edge, int value) { writeSetting(store, keys::place(prefix, edge), value); };
    put("Left", place.left);
    put("Top", place.top);
    if (keepsWidth) put("Width", place.width);
    if (keepsHeight) put("Height", place.height);
}

WindowPlace broughtIntoSight(WindowPlace place, const std::vector<WindowPlace>& screens) {
    const auto screen =
        std::find_if(screens.begin(), screens.end(), [&](const WindowPlace& s) { return canBeGrasped(place, s); });
    if (screen == screens.end()) return broughtWhollyIntoSight(place, screens);
    fitInto(place.left, place.width, screen->left, screen->width);
    fitInto(place.top, place.height, screen->top, screen->height - titleBar);
    return place;
}

WindowPlace broughtWhollyIntoSight(WindowPlace place, const std::vector<WindowPlace>& screens) {
    if (screens.empty()) return place;
    const WindowPlace& screen = screens.front();
    fitInto(place.left, place.width, screen.left, screen.width);
    fitInto(place.top, place.height, screen.top, screen.height - titleBar);
    const int rightmost = screen.left + screen.width - place.width - frame;
    place.left = std::clamp(place.left, screen.left, std::max(screen.left, rightmost));
    place.top = std::clamp(place.top, screen.top, screen.top + screen.height - titleBar - place.height);
    return place;
}

}  // namespace korvex
