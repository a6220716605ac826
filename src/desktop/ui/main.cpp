#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>
#include <iostream>

#include "base/Printable.h"
#include "desktop/StartOptions.h"
#include "desktop/ui/RunProgram.h"
#include "platform/StandardStreams.h"
#include "windows/ui/OutlineStyle.h"
#include "windows/ui/SvgArt.h"

namespace korvex {

namespace {

constexpr int usageError = 2;

int tellUsage(const std::string& why) {
    std::cerr << "korvex: " << printable(why) << "\nkorvex --help tells more.\n";
    return usageError;
}

}  // namespace

int main(int argc, char** argv) {
    standardstreams::keepNumbersTaken();
    // Before a display is asked for: help and complaints must come on any machine.
    const auto options = parseStartOptions({argv + 1, argv + argc});
    if (!options) return tellUsage(options.error().text);
    if (!options->print.empty()) {
        std::cout << options->print;
        return 0;
    }
    // The menus stand in their windows; asking the desktop for a bar of its own takes part of the time of the start.
    QApplication::setAttribute(Qt::AA_DontUseNativeMenuBar);
    QApplication application(argc, argv);      // takes the toolkit's own arguments away
    QApplication::setStyle(new OutlineStyle);  // the application's
    QApplication::setApplicationName(QStringLiteral("Korvex"));
    QApplication::setDesktopFileName(QStringLiteral("korvex"));
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setWindowIcon(programIcon());
    // The toolkit's own dialogs speak the desktop's language, where its translations are installed.
    QTranslator toolkit;
    if (toolkit.load(QLocale(), QStringLiteral("qtbase"), QStringLiteral("_"),
                     QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QApplication::installTranslator(&toolkit);
    }
    return runProgram(*options);
}

}  // namespace korvex

int main(int argc, char** argv) {
    return korvex::main(argc, argv);
}
