#pragma once

#include <string>
#include <vector>

#include "platform/SettingsStore.h"

namespace korvex {

/// What an earlier check has shown of the radio at one port, as far as it changes how Korvex deals with that radio.
/// Nothing of it is a setting of the owner.
struct KnownRadio {
    std::string checked;  ///< when: "2026-11-23 21:04:00"; empty: this radio has not been checked
    std::string device;   ///< the port that it was at, as `MSComm::deviceText` has it, UTF-8
    int longestDelayMs = 0;
    std::vector<std::string> refusedItems;  ///< menu items that it does not tell: "042"
    bool hasEarlyMenuNumbers = false;       ///< one lower than in later firmware from 028 on: 027 is the CAT rate
    bool hasOtherEqualizer = false;         ///< menu 125 to 142 are not the equalizer, or have another form
    bool obeysOneAtATime = false;           ///< of two commands that are sent in one go it obeys one
    bool closesKeyerTexts = false;          ///< with a "}" that is no part of the text
    bool operator==(const KnownRadio&) const = default;

    bool isChecked() const { return !checked.empty(); }
    bool refuses(const std::string& item) const;
};

KnownRadio readKnownRadio(const SettingsStore& settings);
void writeKnownRadio(SettingsStore& settings, const KnownRadio& radio);

}  // namespace korvex
