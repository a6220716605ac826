#pragma once

#include <array>
#include <string>
#include <string_view>
#include <type_traits>

#include "base/NumberText.h"
#include "platform/SettingsStore.h"

namespace korvex {

/// A key of the settings: where it stands, of what type it is, and what counts while nothing is stored under it.
template <class Value, class Name = std::string_view>
struct SettingsKey {
    std::string_view section;
    Name name;
    Value fallback = {};
    Value nonsense = fallback;  ///< what counts for a stored text that is none of the type's
};

/// A file or a folder of the owner. The fallback is a place in the program folder.
struct OwnersPath {
    const char* inProgramFolder = "/files";
};

inline constexpr std::string_view settingsSection = "Settings";
inline constexpr std::string_view portSection = "Einstellungen";
inline constexpr std::string_view knownRadioSection = "KnownRadio";  ///< what a check of the radio has shown

/// Every key there is. The owners' settings files hold these names.
namespace keys {

/// The serial port, the terminal's and the equalizer's.
inline constexpr SettingsKey<std::string_view> lineSettings{portSection, "Einstellungen", "4800,n,8,2"};
inline constexpr SettingsKey<int> commPort{portSection, "COM-Anschluß", 1};
inline constexpr SettingsKey<int> handshaking{portSection, "Handshaking", 0,
                                              -1};  // nonsense is refused like a wrong code
inline constexpr SettingsKey<bool> echo{portSection, "Echo"};
inline constexpr SettingsKey<bool> fastTransfers{portSection, "FastTransfers"};
inline constexpr SettingsKey<bool> sharePort{portSection, "SharePort"};      // with other programs, as a device
inline constexpr SettingsKey<bool> shareRigctl{portSection, "ShareRigctl"};  // and by hamlib's network protocol

/// Where the next dialog begins: the last file, or the last folder of a backup.
inline constexpr SettingsKey<OwnersPath> savePath{settingsSection, "SavePath"};  // menus and memories
inline constexpr SettingsKey<OwnersPath> memoryListPath{settingsSection, "SavePath3"};
inline constexpr SettingsKey<OwnersPath> memoryTablePath{settingsSection, "SavePathTables"};
inline constexpr SettingsKey<OwnersPath> bandStackPath{settingsSection, "SavePathBand"};
inline constexpr SettingsKey<OwnersPath> keyerPath{settingsSection, "SaveKeyer"};
inline constexpr SettingsKey<OwnersPath> backupPath{settingsSection, "SavePathBackup"};
inline constexpr SettingsKey<OwnersPath> descriptionsPath{settingsSection, "SavePathDescriptions"};
inline constexpr SettingsKey<OwnersPath> eqPresetPath{settingsSection, "SavePathEqualizer"};
inline constexpr SettingsKey<OwnersPath> reportPath{settingsSection, "SavePathReport"};
inline constexpr std::array ownersPaths = {savePath,   memoryListPath,   memoryTablePath, bandStackPath, keyerPath,
                                           backupPath, descriptionsPath, eqPresetPath,    reportPath};

/// The file that was used last, the one before it and so on; places from 1.
inline SettingsKey<std::string_view, std::string> recentFile(std::size_t place) {
    return {"RecentFiles", std::to_string(place)};
}

inline constexpr SettingsKey<bool> memoryListReadable{settingsSection, "ChannelinfoReadable"};

/// The check has been proposed to the owner, who may have said no.
inline constexpr SettingsKey<bool> checkProposed{settingsSection, "CheckProposed"};

namespace knownRadio {
inline constexpr SettingsKey<std::string_view> checked{knownRadioSection, "Checked"};
inline constexpr SettingsKey<std::string_view> device{knownRadioSection, "Device"};
inline constexpr SettingsKey<int> longestDelayMs{knownRadioSection, "LongestDelay"};
inline constexpr SettingsKey<std::string_view> refusedItems{knownRadioSection, "RefusedItems"};  // "042,077"
inline constexpr SettingsKey<bool> earlyMenuNumbers{knownRadioSection, "EarlyMenuNumbers"};
inline constexpr SettingsKey<bool> otherEqualizer{knownRadioSection, "OtherEqualizer"};
inline constexpr SettingsKey<bool> oneAtATime{knownRadioSection, "OneAtATime"};
inline constexpr SettingsKey<bool> closesKeyerTexts{knownRadioSection, "ClosesKeyerTexts"};
}  // namespace knownRadio

/// `edge` is "Left", "Top", "Width" or "Height", in twips; every window has its own fallbacks.
inline SettingsKey<int, std::string> place(std::string_view window, std::string_view edge, int fallback = 0) {
    return {settingsSection, std::string(window).append(edge), fallback};
}

/// A name of the device that the user settled on for a port number.
inline SettingsKey<std::string_view, std::string> device(int portNumber) {
    return {"Ports", std::to_string(portNumber)};
}

}  // namespace keys

/// Stored are texts as they are, numbers in decimal, and "True" or "False".
template <class Value>
std::string storedFrom(Value value) {
    if constexpr (std::is_same_v<Value, bool>) return value ? "True" : "False";
    if constexpr (std::is_same_v<Value, int>) return std::to_string(value);
    if constexpr (std::is_same_v<Value, std::string_view>) return std::string(value);
}
template <class Value>
auto valueFrom(const std::string& stored, Value nonsense) {
    if constexpr (std::is_same_v<Value, bool>) return stored == "True";
    if constexpr (std::is_same_v<Value, int>) return parseWhole(stored).value_or(nonsense);
    if constexpr (std::is_same_v<Value, std::string_view>) return stored;
}

/// What is stored under a key, as it is; empty for nothing.
template <class Value, class Name>
std::string storedText(const SettingsStore& store, const SettingsKey<Value, Name>& setting) {
    return store.get(applicationName, setting.section, setting.name, "");
}

template <class Value, class Name>
auto readSetting(const SettingsStore& store, const SettingsKey<Value, Name>& setting) {
    const std::string stored = storedText(store, setting);
    return valueFrom(stored.empty() ? storedFrom(setting.fallback) : stored, setting.nonsense);
}
inline std::string readSetting(const SettingsStore& store, const SettingsKey<OwnersPath>& setting,
                               const std::string& programFolder) {
    return store.get(applicationName, setting.section, setting.name, programFolder + setting.fallback.inProgramFolder);
}

template <class Value, class Name>
void writeSetting(SettingsStore& store, const SettingsKey<Value, Name>& setting, std::type_identity_t<Value> value) {
    store.save(applicationName, setting.section, setting.name, storedFrom(value));
}
inline void writeSetting(SettingsStore& store, const SettingsKey<OwnersPath>& setting, const std::string& path) {
    store.save(applicationName, setting.section, setting.name, path);
}

}  // namespace korvex
