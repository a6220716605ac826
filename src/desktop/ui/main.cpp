#include <QApplication>
#include <QIcon>
#include <iostream>
#include <optional>

#include "app/Program.h"
#include "app/StartOptions.h"
#include "app/Version.h"
#include "desktop/ui/Desktop.h"
#include "platform/ProgramFolder.h"
#include "platform/qt/QtClock.h"
#include "platform/qt/QtProgramPlaces.h"
#include "platform/qt/QtSerialPorts.h"
#include "platform/qt/QtSettingsStore.h"
#include "platform/qt/QtShell.h"
#include "platform/qtwidgets/QtFileDialog.h"
#include "platform/qtwidgets/QtMsgBox.h"
#include "radio/SimulatedPorts.h"

namespace korvex {

namespace {

constexpr int usageError = 2;

/// The demonstration must not change what the owner has set for the real radio.
std::string settingsFile(const StartOptions& options) {
    if (!options.settingsFile.empty() || !options.demo) return options.settingsFile;
    std::string file = QtSettingsStore().file();
    return file.insert(file.rfind('.'), "-demo");
}

int run(const StartOptions& options) {
    QtClock clock;
    QtSettingsStore settings(settingsFile(options));
    std::optional<SimulatedPorts> demo;
    if (options.demo) demo.emplace(clock);
    QtSerialPorts ports(settings, options.ports, demo ? &*demo : nullptr);
    QtFileDialog fileDialog;
    QtMsgBox msgBox;
    QtShell shell;
    const auto folder = makeProgramFolder(programPlaces(options.programFolder));
    if (!folder) {
        msgBox.stop(folder.error().text);
        return 1;
    }
    Program program({clock, ports, settings, fileDialog, msgBox, shell, *folder});
    Desktop desktop(program);
    desktop.showStartWindow();
    return QApplication::exec();
}

int tellUsage(const std::string& why) {
    std::cerr << "korvex: " << why << "\nkorvex --help tells more.\n";
    return usageError;
}

}  // namespace

int main(int argc, char** argv) {
    // Before a display is asked for: help must come on any machine.
    const auto asked = parseStartOptions({argv + 1, argv + argc});
    if (asked && asked->help) {
        std::cout << startOptionsHelp();
        return 0;
    }
    if (asked && asked->version) {
        std::cout << "korvex " << versionText << "\n";
        return 0;
    }
    QApplication application(argc, argv);  // takes the toolkit's own arguments away
    QApplication::setApplicationName(QStringLiteral("Korvex"));
    QApplication::setDesktopFileName(QStringLiteral("korvex"));
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/images/korvex.svg")));
    const auto options = parseStartOptions({argv + 1, argv + argc});
    return options ? run(*options) : tellUsage(options.error().text);
}

}  // namespace korvex

int main(int argc, char** argv) {
    return korvex::main(argc, argv);
}
