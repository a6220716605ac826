#include "cat/KnownRadio.h"

#include <algorithm>

#include "platform/Settings.h"

namespace korvex {

namespace {

constexpr int mostDelayMs = 2'000;  // a radio that takes longer answers nothing as far as Korvex is concerned

std::string joined(const std::vector<std::string>& items) {
    std::string text;
    for (const auto& item : items) text += (text.empty() ? "" : ",") + item;
    return text;
}

std::vector<std::string> itemsIn(const std::string& text) {
    std::vector<std::string> items;
    for (std::size_t at = 0; at < text.size();) {
        const auto end = std::min(text.find(',', at), text.size());
        if (end > at) items.push_back(text.substr(at, end - at));
        at = end + 1;
    }
    return items;
}

}  // namespace

bool KnownRadio::refuses(const std::string& item) const {
    return std::find(refusedItems.begin(), refusedItems.end(), item) != refusedItems.end();
}

KnownRadio readKnownRadio(const SettingsStore& settings) {
    namespace known = keys::knownRadio;
    return {.checked = readSetting(settings, known::checked),
            .device = readSetting(settings, known::device),
            .longestDelayMs = std::clamp(readSetting(settings, known::longestDelayMs), 0, mostDelayMs),
            .refusedItems = itemsIn(readSetting(settings, known::refusedItems)),
            .hasEarlyMenuNumbers = readSetting(settings, known::earlyMenuNumbers),
            .hasOtherEqualizer = readSetting(settings, known::otherEqualizer),
            .obeysOneAtATime = readSetting(settings, known::oneAtATime),
            .closesKeyerTexts = readSetting(settings, known::closesKeyerTexts)};
}

void writeKnownRadio(SettingsStore& settings, const KnownRadio& radio) {
    namespace known = keys::knownRadio;
    writeSetting(settings, known::checked, radio.checked);
    writeSetting(settings, known::device, radio.device);
    writeSetting(settings, known::longestDelayMs, radio.longestDelayMs);
    writeSetting(settings, known::refusedItems, joined(radio.refusedItems));
    writeSetting(settings, known::earlyMenuNumbers, radio.hasEarlyMenuNumbers);
    writeSetting(settings, known::otherEqualizer, radio.hasOtherEqualizer);
    writeSetting(settings, known::oneAtATime, radio.obeysOneAtATime);
    writeSetting(settings, known::closesKeyerTexts, radio.closesKeyerTexts);
}

}  // namespace korvex
