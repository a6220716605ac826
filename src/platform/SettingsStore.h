#pragma once

#include <string>
#include <string_view>

namespace korvex {

/// The application name under which every window keeps its settings; also the program's title.
inline constexpr std::string_view applicationName = "Korvex";

/// Text values (UTF-8) by application, section and key, kept per user. The program's own keys are in
/// platform/Settings.h.
class SettingsStore {
public:
    virtual ~SettingsStore() = default;
    virtual std::string get(std::string_view application, std::string_view section, std::string_view key,
                            std::string_view fallback) const = 0;
    virtual void save(std::string_view application, std::string_view section, std::string_view key,
                      std::string_view value) = 0;
};

}  // namespace korvex
