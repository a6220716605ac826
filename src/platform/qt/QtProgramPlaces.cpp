#include "platform/qt/QtProgramPlaces.h"

#include <QCoreApplication>
#include <QStandardPaths>

#include "platform/SettingsStore.h"

namespace korvex {

ProgramPlaces programPlaces(const std::string& named) {
    const std::string data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation).toStdString();
    return {named, QCoreApplication::applicationDirPath().toStdString(), data + "/" + std::string(applicationName)};
}

}  // namespace korvex
