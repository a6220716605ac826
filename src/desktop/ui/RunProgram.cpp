#include "desktop/ui/RunProgram.h"

#include <QApplication>
#include <QSocketNotifier>
#include <optional>
#include <string>

#include "app/Program.h"
#include "app/RememberedPaths.h"
#include "desktop/ui/Desktop.h"
#include "platform/EndSignals.h"
#include "platform/ProgramFolder.h"
#include "platform/qt/QtChecksum.h"
#include "platform/qt/QtChildProgram.h"
#include "platform/qt/QtClock.h"
#include "platform/qt/QtDatabase.h"
#include "platform/qt/QtDoors.h"
#include "platform/qt/QtProgramPlaces.h"
#include "platform/qt/QtSerialPorts.h"
#include "platform/qt/QtSettingsStore.h"
#include "platform/qtwidgets/QtFileDialog.h"
#include "platform/qtwidgets/QtMsgBox.h"
#include "platform/qtwidgets/QtShell.h"
#include "radio/SimulatedPorts.h"

namespace korvex {

namespace {

/// The demonstration must not change what the owner has set for the real radio.
std::string settingsFile(const StartOptions& options) {
    if (!options.settingsFile.empty() || !options.demo) return options.settingsFile;
    std::string file = QtSettingsStore().file();
    return file.insert(file.rfind('.'), "-demo");
}

/// Nor what the owner keeps in the description database.
ProgramPlaces places(const StartOptions& options) {
    ProgramPlaces places = programPlaces(options.programFolder);
    if (options.demo && places.named.empty()) places.named = places.user + "-demo";
    return places;
}

}  // namespace

int runProgram(const StartOptions& options, const std::function<void(Program&)>& started) {
    QtClock clock;
    QtSettingsStore settings(settingsFile(options));
    std::optional<SimulatedPorts> demo;
    if (options.demo) demo.emplace(clock);
    QtSerialPorts ports(settings, options.ports, demo ? &*demo : nullptr);
    QtFileDialog fileDialog;
    QtMsgBox msgBox;
    QtShell shell;
    QtDatabase database;
    QtDoors doors;
    const auto folder = makeProgramFolder(places(options));
    if (!folder) {
        msgBox.stop(folder.error().text);
        return 1;
    }
    rememberNewFolder(settings, folder->former, folder->path);
    Program program({clock, ports, settings, fileDialog, msgBox, shell, database, folder->path, localTimeOfDay,
                     shippedDescriptions(places(options)), sha256, &doors, runChildProgram});
    Desktop desktop(program);
    desktop.showStartWindow();
    if (!folder->news.empty()) msgBox.show({folder->news, "", MsgIcon::Information, MsgButtons::Ok});
    // From the event loop: a box of ours needs one, and the window should be there first.
    QMetaObject::invokeMethod(
        QApplication::instance(), [&program, &options] { program.opener.open(options.files); }, Qt::QueuedConnection);
    if (started) started(program);
    // As at the end of the desktop's session: nobody is asked any more.
    endsignals::watch();
    const QSocketNotifier signal(endsignals::descriptor(), QSocketNotifier::Read);
    QObject::connect(&signal, &QSocketNotifier::activated, [&program] {
        if (program.mayEndSession(false)) program.end();
    });
    const int code = QApplication::exec();
    return endsignals::came() == 0 ? code : endsignals::exitCode();
}

}  // namespace korvex
