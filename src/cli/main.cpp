#include <QCoreApplication>
#include <QSocketNotifier>
#include <array>
#include <csignal>
#include <fcntl.h>
#include <iostream>
#include <memory>
#include <optional>
#include <unistd.h>

#include "app/Version.h"
#include "cli/Description.h"
#include "cli/Session.h"
#include "platform/ProgramFolder.h"
#include "platform/qt/QtClock.h"
#include "platform/qt/QtDatabase.h"
#include "platform/qt/QtProgramPlaces.h"
#include "platform/qt/QtSerialPorts.h"
#include "platform/qt/QtSettingsStore.h"
#include "radio/SimulatedPorts.h"

namespace korvex::cli {

namespace {

/// Ctrl-C and its like, brought from the signal handler into the event loop.
class Interruption {
public:
    Interruption() {
        if (::pipe2(s_pipe.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
        m_notifier = std::make_unique<QSocketNotifier>(s_pipe[0], QSocketNotifier::Read);
        for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
            struct sigaction action {};
            action.sa_handler = [](int) { static_cast<void>(!::write(s_pipe[1], "x", 1)); };
            ::sigaction(number, &action, nullptr);
        }
    }
    void whenItComes(std::function<void()> handler) {
        if (m_notifier) QObject::connect(m_notifier.get(), &QSocketNotifier::activated, std::move(handler));
    }

private:
    static inline std::array<int, 2> s_pipe{-1, -1};
    std::unique_ptr<QSocketNotifier> m_notifier;
};

int listPorts(SerialPorts& ports) {
    for (const auto& port : ports.list()) {
        std::string description = port.description;
        for (char& c : description) {
            if (c == '\n') c = ' ';
        }
        std::cout << port.number << "\t" << port.device << "\t" << description << "\n";
    }
    return static_cast<int>(ExitCode::Done);
}

int runSession(QCoreApplication& application, const Command& command, QtClock& clock, SerialPorts& ports,
               SettingsStore& settings) {
    GivenFile givenFile;
    ConsoleMsgBox msgBox(std::cerr);
    NoShell shell;
    QtDatabase database;
    BorrowedSettings borrowed(settings);
    Program program({clock, ports, borrowed, givenFile, msgBox, shell, database, "."});
    std::optional<ProgressLine> progressLine;
    if (::isatty(STDERR_FILENO) == 1) progressLine.emplace(program.progress, std::cerr);
    const std::string descriptions = command.database.value_or(findDescriptionDatabase(programPlaces({})));
    Session session(program, givenFile, command, {std::cout, std::cerr, titlesFrom(database, descriptions)});
    std::optional<ExitCode> code;
    const Connection finished = session.finished.connect([&](ExitCode result) {
        code = result;
        application.quit();
    });
    Interruption interruption;
    interruption.whenItComes([&session] { session.interrupt(); });
    session.start();
    if (!code) QCoreApplication::exec();
    return static_cast<int>(code.value_or(ExitCode::Port));
}

int runDescription(const Command& command) {
    std::string databaseFile = command.database.value_or("");
    if (databaseFile.empty()) {
        const auto folder = makeProgramFolder(programPlaces({}));
        if (!folder) {
            std::cerr << "korvexctl: " << folder.error().text << "\n";
            return static_cast<int>(ExitCode::File);
        }
        databaseFile = *folder + "/" + std::string(descriptionDatabaseName);
    }
    QtDatabase database;
    const auto move = command.verb == Command::Verb::DescriptionExport ? exportDescription : importDescription;
    return static_cast<int>(move(database, databaseFile, command.file, std::cerr));
}

int run(QCoreApplication& application, const Command& command) {
    QtClock clock;
    QtSettingsStore settings(command.settingsFile.value_or(""));
    std::map<int, std::string> given;
    if (command.device) given[1] = *command.device;
    SimulatedPorts demo(clock);
    QtSerialPorts ports(settings, given, command.demo ? &demo : nullptr);
    if (command.verb == Command::Verb::Ports) return listPorts(ports);
    return runSession(application, command, clock, ports, settings);
}

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    const auto command = parseArguments({argv + 1, argv + argc});
    if (!command) {
        std::cerr << "korvexctl: " << command.error().text << "\nkorvexctl --help tells more.\n";
        return static_cast<int>(ExitCode::Usage);
    }
    switch (command->verb) {
        case Command::Verb::Help: std::cout << usage(); return 0;
        case Command::Verb::Version: std::cout << "korvexctl " << versionText << "\n"; return 0;
        case Command::Verb::DescriptionExport:
        case Command::Verb::DescriptionImport: return runDescription(*command);
        default: return run(application, *command);
    }
}

}  // namespace korvex::cli

int main(int argc, char** argv) {
    return korvex::cli::main(argc, argv);
}
