#include "platform/qtwidgets/QtShell.h"

#include <QDesktopServices>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

#include "platform/qtwidgets/DesktopEntry.h"

namespace korvex {

namespace {

Failure start(const QStringList& command) {
    QProcess program;
    program.setProgram(command.constFirst());
    program.setArguments(command.mid(1));
    program.setStandardInputFile(QProcess::nullDevice());
    program.setStandardOutputFile(QProcess::nullDevice());
    program.setStandardErrorFile(QProcess::nullDevice());
    if (program.startDetached()) return {};
    return RuntimeError{errors::FileNotFound,
                        "The program \"" + command.constFirst().toStdString() + "\" cannot be started."};
}

QStringList fromEnvironment(const char* variable, const QStringList& arguments = {}) {
    const QStringList command = QProcess::splitCommand(qEnvironmentVariable(variable));
    return command.isEmpty() ? command : command + arguments;
}

/// The first of the commands whose program is installed.
QStringList firstInstalled(std::initializer_list<const char*> commands, const QStringList& arguments = {}) {
    for (const char* command : commands) {
        const QStringList words = QString::fromLatin1(command).split(QLatin1Char(' '));
        if (!QStandardPaths::findExecutable(words.constFirst()).isEmpty()) return words + arguments;
    }
    return {};
}

QString defaultProgramForPlainText() {
    constexpr int longestWaitMs = 3000;
    QProcess query;
    query.start(QStringLiteral("xdg-mime"),
                {QStringLiteral("query"), QStringLiteral("default"), QStringLiteral("text/plain")});
    if (!query.waitForFinished(longestWaitMs)) return {};
    return QString::fromLocal8Bit(query.readAllStandardOutput()).trimmed();
}

QStringList defaultTextEditor(const QString& file) {
    const QString entry = defaultProgramForPlainText();
    if (entry.isEmpty()) return {};
    QFile description(QStandardPaths::locate(QStandardPaths::ApplicationsLocation, entry));
    if (!description.open(QIODevice::ReadOnly)) return {};
    const QStringList command = commandOfDesktopEntry(QString::fromUtf8(description.readAll()), file);
    if (command.isEmpty() || QStandardPaths::findExecutable(command.constFirst()).isEmpty()) return {};
    return command;
}

}  // namespace

Failure QtShell::openTextEditor(const std::string& file) {
    const QString name = QFileInfo(QString::fromStdString(file)).absoluteFilePath();
    QStringList command = fromEnvironment("KORVEX_EDITOR", {name});
    if (command.isEmpty()) command = defaultTextEditor(name);
    if (command.isEmpty()) {
        command = firstInstalled({"gnome-text-editor", "gedit", "kate", "kwrite", "mousepad", "xed", "pluma",
                                  "featherpad", "leafpad", "l3afpad", "geany", "xfw", "xedit"},
                                 {name});
    }
    if (!command.isEmpty()) return start(command);
    return RuntimeError{errors::FileNotFound,
                        "No text editor was found. Install one (\"sudo apt install mousepad\"), or name one in the "
                        "environment variable KORVEX_EDITOR."};
}

Failure QtShell::openBrowser(const std::string& file) {
    const QString name = QFileInfo(QString::fromStdString(file)).absoluteFilePath();
    const QUrl page = QUrl::fromLocalFile(name);
    const QStringList command = fromEnvironment("KORVEX_BROWSER", {page.toString(QUrl::FullyEncoded)});
    if (!command.isEmpty()) return start(command);
    if (QDesktopServices::openUrl(page)) return {};
    return RuntimeError{errors::FileNotFound, "No web browser was found. The page is " + file + "."};
}

Failure QtShell::openSystemInformation() {
    QStringList command = fromEnvironment("KORVEX_SYSTEM_INFORMATION");
    if (command.isEmpty()) {
        command = firstInstalled({"hardinfo2", "hardinfo", "kinfocenter", "gnome-control-center info-overview",
                                  "cinnamon-settings info", "mate-system-monitor", "gnome-system-monitor",
                                  "xfce4-taskmanager", "xfce4-about"});
    }
    if (!command.isEmpty()) return start(command);
    return RuntimeError{errors::FileNotFound, "No program that tells about this computer was found."};
}

}  // namespace korvex
