#include "platform/qt/QtSettingsStore.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace korvex {

namespace {

QString text(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

QString fullKey(std::string_view section, std::string_view key) {
    return section.empty() ? text(key) : text(section) + QLatin1Char('/') + text(key);
}

/// A key with an umlaut that someone typed as it is: the library reads its bytes one by one.
QString typedKey(const QString& key) {
    return QString::fromLatin1(key.toUtf8());
}

QString defaultFile() {
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation));
    const QString name = text(applicationName);
    return folder.filePath(name + QLatin1Char('/') + name + QLatin1String(".ini"));
}

}  // namespace

QtSettingsStore::QtSettingsStore(const std::string& file)
    : m_file(file.empty() ? defaultFile() : QFileInfo(QString::fromStdString(file)).absoluteFilePath()) {}

QSettings& QtSettingsStore::settingsOf(std::string_view application) const {
    const auto known = m_applications.find(application);
    if (known != m_applications.end()) return *known->second;
    QString file = m_file;
    if (application != applicationName) {
        const QString name = text(application).replace(QLatin1Char('/'), QLatin1Char('_'));
        file = QFileInfo(m_file).dir().filePath(name + QLatin1String(".ini"));
    }
    auto settings = std::make_unique<QSettings>(file, QSettings::IniFormat);
    return *m_applications.emplace(application, std::move(settings)).first->second;
}

std::string QtSettingsStore::get(std::string_view application, std::string_view section, std::string_view key,
                                 std::string_view fallback) const {
    const QSettings& settings = settingsOf(application);
    const QString name = fullKey(section, key);
    QVariant value = settings.value(name);
    if (!value.isValid()) value = settings.value(typedKey(name));
    if (!value.isValid()) return std::string(fallback);
    // "4800,n,8,2" typed without quotes comes as a list.
    return value.toStringList().join(QLatin1Char(',')).toStdString();
}

void QtSettingsStore::save(std::string_view application, std::string_view section, std::string_view key,
                           std::string_view value) {
    QSettings& settings = settingsOf(application);
    const QString name = fullKey(section, key);
    if (typedKey(name) != name) settings.remove(typedKey(name));
    settings.setValue(name, text(value));
}

}  // namespace korvex
