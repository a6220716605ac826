// Whether the sequencers keep their pace in real time: a menu read of the simulated radio against 149 x 100 ms.

#include <QTemporaryDir>
#include <chrono>

#include "Measure.h"
#include "app/Program.h"
#include "platform/qt/QtClock.h"
#include "platform/qt/QtDatabase.h"
#include "platform/qt/QtSettingsStore.h"
#include "platform/qtwidgets/QtMsgBox.h"
#include "platform/qtwidgets/QtShell.h"
#include "radio/SimulatedPorts.h"

namespace korvex::bench {
namespace {

class OneFile : public FileDialog {
public:
    std::string file;
    std::optional<std::string> show(const FileDialogRequest&) override { return file; }
};

int run() {
    QTemporaryDir folder;
    QtClock clock;
    QtSettingsStore settings(folder.filePath(QStringLiteral("korvex.ini")).toStdString());
    SimulatedPorts ports(clock);
    ports.cable.idealLine = true;
    OneFile dialog;
    dialog.file = folder.filePath(QStringLiteral("bench.mnu")).toStdString();
    QtMsgBox msgBox;
    QtShell shell;
    QtDatabase database;
    Program program({clock, ports, settings, dialog, msgBox, shell, database, folder.path().toStdString()});
    program.terminal.Form_Load();
    program.link.togglePort();
    using Time = std::chrono::steady_clock;
    Time::time_point first;
    Time::time_point last;
    int commands = 0;
    const auto counting = program.progress.value.changed.connect([&](int value) {
        if (value < 1) return;
        last = Time::now();
        if (commands++ == 0) first = last;
    });
    const auto ended = program.menuSave.ended.connect([](Outcome::Kind) { QApplication::quit(); });
    QTimer::singleShot(1500, [&] { program.menuSave.mnu_Store_Click(); });
    QApplication::exec();
    const double took = std::chrono::duration<double, std::milli>(last - first).count();
    const double meant = 100.0 * (commands - 1);
    std::printf("%d %.1f %.1f %.3f\n", commands, took, meant, 100.0 * (took - meant) / meant);
    return 0;
}

}  // namespace
}  // namespace korvex::bench

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    return korvex::bench::run();
}
