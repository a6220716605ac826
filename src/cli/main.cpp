#include <QCoreApplication>
#include <QSocketNotifier>
#include <algorithm>
#include <iostream>
#include <optional>

#include "backup/MenuTitles.h"
#include "base/Printable.h"
#include "cli/Description.h"
#include "cli/JsonReport.h"
#include "cli/Session.h"
#include "menu/ShippedDescriptions.h"
#include "platform/EndSignals.h"
#include "platform/ProgramFolder.h"
#include "platform/StandardStreams.h"
#include "platform/qt/QtChecksum.h"
#include "platform/qt/QtChildProgram.h"
#include "platform/qt/QtClock.h"
#include "platform/qt/QtDatabase.h"
#include "platform/qt/QtDoors.h"
#include "platform/qt/QtProgramPlaces.h"
#include "platform/qt/QtSerialPorts.h"
#include "platform/qt/QtSettingsStore.h"
#include "radio/SimulatedPorts.h"

namespace korvex::cli {

namespace {

/// What is printed, for a terminal that must not obey it.
struct Output {
    std::ostream& out;
    std::ostream& err;

    int fail(const std::string& why, ExitCode code) const {
        err << "korvexctl: " << why << "\n";
        return static_cast<int>(code);
    }
    /// The exit code at the very end: a reader that went away, or a full disk, held nothing up until now.
    int checked(int code) const {
        if (out.flush()) return code;
        fail("the output could not be written; everything else went on", ExitCode::File);
        return code == 0 ? static_cast<int>(ExitCode::File) : code;
    }
};

std::string onOneLine(std::string text) {
    std::replace(text.begin(), text.end(), '\n', ' ');
    return text;
}

int listPorts(const std::vector<SerialPortInfo>& ports, const Command& command, const Output& output) {
    if (command.json) {
        printJson(output.out, ports);
    } else {
        for (const auto& port : ports) {
            output.out << port.number << "\t" << onOneLine(port.device) << "\t" << onOneLine(port.description) << "\n";
        }
    }
    if (ports.empty() && !command.quiet) {
        output.err << "korvexctl: no serial port was found; if the radio is at an adapter, is it plugged in?\n";
    }
    return static_cast<int>(ExitCode::Done);
}

int runSession(QCoreApplication& application, const Command& command, QtClock& clock, SerialPorts& ports,
               SettingsStore& settings, const Output& output) {
    endsignals::watch();
    NoFileDialog noFileDialog;
    ConsoleMsgBox msgBox(output.err);
    NoShell shell;
    QtDatabase database;
    QtDoors doors;
    BorrowedSettings borrowed(settings, command.demo ? nullptr : &settings);
    Program program(
        {clock, ports, borrowed, noFileDialog, msgBox, shell, database, ".", localTimeOfDay, {}, sha256, &doors});
    std::optional<ProgressLine> progressLine;
    if (standardstreams::errorsAreOnTerminal() && !command.quiet) progressLine.emplace(program.progress, std::cerr);
    const std::string descriptions = command.database.value_or(findDescriptionDatabase(programPlaces({})));
    Session session(program, command, {output.out, output.err, titlesFrom(database, descriptions)});
    std::optional<ExitCode> code;
    const Connection finished = session.finished.connect([&](ExitCode result) {
        code = result;
        application.quit();
    });
    const QSocketNotifier interruption(endsignals::descriptor(), QSocketNotifier::Read);
    QObject::connect(&interruption, &QSocketNotifier::activated, [&session] { session.interrupt(); });
    session.start();
    if (!code) QCoreApplication::exec();
    return code == ExitCode::Interrupted ? endsignals::exitCode() : static_cast<int>(code.value_or(ExitCode::Port));
}

int runDescription(const Command& command, const Output& output) {
    QtDatabase database;
    std::string databaseFile = command.database.value_or("");
    if (databaseFile.empty()) {
        const auto folder = makeProgramFolder(programPlaces({}));
        if (!folder) return output.fail(folder.error().text, ExitCode::File);
        if (!folder->news.empty() && !command.quiet) output.err << folder->news << "\n";
        databaseFile = folder->path + "/" + std::string(descriptionDatabaseName);
        takeShippedDescriptions(database, databaseFile, shippedDescriptions(programPlaces({})));
    }
    std::ostream nowhere(nullptr);
    if (command.verb == Command::Verb::DescriptionExport)
        return static_cast<int>(exportDescription(database, databaseFile, command.file, output.err));
    const TableToImport table = {databaseFile, command.file, command.withSettings, localTimeOfDay(), runChildProgram};
    return static_cast<int>(importDescription(database, table, command.quiet ? nowhere : output.out, output.err));
}

int runWithPorts(QCoreApplication& application, const Command& command, const Output& output) {
    QtClock clock;
    QtSettingsStore settings(command.settingsFile.value_or(""));
    std::map<int, std::string> given;
    if (command.device) given[1] = *command.device;
    SimulatedPorts demo(clock);
    QtSerialPorts ports(settings, given, command.demo ? &demo : nullptr);
    if (command.verb == Command::Verb::Ports) return listPorts(ports.list(), command, output);
    return runSession(application, command, clock, ports, settings, output);
}

int run(QCoreApplication& application, const std::vector<std::string>& arguments, const Output& output) {
    const auto command = parseArguments(arguments);
    if (!command) return output.fail(command.error().text + "\nkorvexctl --help tells more.", ExitCode::Usage);
    switch (command->verb) {
        case Command::Verb::Print: output.out << command->text; return 0;
        case Command::Verb::DescriptionExport:
        case Command::Verb::DescriptionImport: return runDescription(*command, output);
        default: return runWithPorts(application, *command, output);
    }
}

}  // namespace

int main(int argc, char** argv) {
    standardstreams::keepNumbersTaken();
    endsignals::ignoreBrokenPipes();
    QCoreApplication application(argc, argv);
    PrintableStream out(std::cout);
    PrintableStream err(std::cerr);
    const Output output{out, err};
    return output.checked(run(application, {argv + 1, argv + argc}, output));
}

}  // namespace korvex::cli

int main(int argc, char** argv) {
    return korvex::cli::main(argc, argv);
}
