// The program up to its settled start window. Without arguments it ends there, to be timed from outside; with "rest" it
// stays idle for five seconds and tells what that costs; with "empty" it is the yardstick: an empty window of the
// toolkit.

#include <QDir>
#include <QMainWindow>
#include <string_view>

#include "Measure.h"
#include "app/Program.h"
#include "desktop/ui/RunProgram.h"
#include "windows/ui/SvgArt.h"

namespace {

void rest() {
    const std::string status = "/proc/self/status";
    QTimer::singleShot(1000, [status] {
        const double pss = korvex::bench::pssMiB();
        const double cpu = korvex::bench::cpuMs();
        const long switches = korvex::bench::procNumber(status, "voluntary_ctxt_switches:");
        QTimer::singleShot(5000, [=] {
            std::printf("%.1f %.1f %ld\n", pss, korvex::bench::cpuMs() - cpu,
                        korvex::bench::procNumber(status, "voluntary_ctxt_switches:") - switches);
            QApplication::quit();
        });
    });
}

}  // namespace

int main(int argc, char** argv) {
    const std::string_view what = argc > 1 ? argv[1] : "";
    QApplication application(argc, argv);
    korvex::bench::WhenSettled settled([what] { what == "rest" ? rest() : QApplication::quit(); });
    if (what == "empty") {
        QMainWindow window;
        window.resize(411, 515);
        window.show();
        return QApplication::exec();
    }
    QApplication::setWindowIcon(korvex::programIcon());
    // Kept from run to run: filling the folder belongs to the very first start alone.
    const QString folder = QDir::temp().filePath(QStringLiteral("korvex-bench"));
    QDir().mkpath(folder);
    korvex::StartOptions options;
    options.settingsFile = (folder + QStringLiteral("/korvex.ini")).toStdString();
    options.programFolder = folder.toStdString();
    return korvex::runProgram(options);
}
