#include <QApplication>
#include <iostream>

#include "app/StartOptions.h"
#include "app/Version.h"
#include "app/ui/SvgArt.h"
#include "desktop/ui/RunProgram.h"
#include "platform/StandardStreams.h"

namespace korvex {

namespace {

constexpr int usageError = 2;

int tellUsage(const std::string& why) {
    std::cerr << "korvex: " << why << "\nkorvex --help tells more.\n";
    return usageError;
}

}  // namespace

int main(int argc, char** argv) {
    standardstreams::keepNumbersTaken();
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
    // The menus stand in their windows; asking the desktop for a bar of its own takes part of the time of the start.
    QApplication::setAttribute(Qt::AA_DontUseNativeMenuBar);
    QApplication application(argc, argv);  // takes the toolkit's own arguments away
    QApplication::setApplicationName(QStringLiteral("Korvex"));
    QApplication::setDesktopFileName(QStringLiteral("korvex"));
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setWindowIcon(programIcon());
    const auto options = parseStartOptions({argv + 1, argv + argc});
    return options ? runProgram(*options) : tellUsage(options.error().text);
}

}  // namespace korvex

int main(int argc, char** argv) {
    return korvex::main(argc, argv);
}
