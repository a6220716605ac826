#pragma once

#include <QSettings>
#include <map>
#include <memory>
#include <string>

#include "platform/SettingsStore.h"

namespace korvex {

/// Settings in a text file that people may edit: one file an application, in the user's configuration folder. A change
/// reaches the disk as soon as the event loop runs, and at the end; the file is replaced as a whole. Where it cannot be
/// read or written, settings live as long as the program does.
class QtSettingsStore : public SettingsStore {
public:
    /// `file` holds the program's settings; empty: <configuration folder>/Korvex/Korvex.ini. Settings of other
    /// applications stand beside it.
    explicit QtSettingsStore(const std::string& file = {});

    std::string get(std::string_view application, std::string_view section, std::string_view key,
                    std::string_view fallback) const override;
    void save(std::string_view application, std::string_view section, std::string_view key,
              std::string_view value) override;

    /// The file of the program's own settings.
    std::string file() const { return m_file.toStdString(); }

private:
    QSettings& settingsOf(std::string_view application) const;

    QString m_file;
    mutable std::map<std::string, std::unique_ptr<QSettings>, std::less<>> m_applications;
};

}  // namespace korvex
