#include "cli/CommandLine.h"

#include "backup/FileKind.h"
#include "base/CodePage.h"
#include "cat/TransmitGuard.h"
#include "cli/Manual.h"
#include "options/OptionParser.h"
#include "platform/LineSettings.h"

namespace korvex::cli {

namespace {

std::string helpEnd() {
    return "\nKinds: " + kindNames() + ". FILE may be \"-\": standard input or output.\n";
}

RuntimeError wrong(const std::string& why) {
    return {errors::InvalidPropertyValue, why};
}

OptionParser::Take intoLine(std::optional<std::string>& settings) {
    return [&settings](const std::string& value) -> Failure {
        if (auto parsed = parseLineSettings(value); !parsed) return parsed.error();
        settings = value;
        return {};
    };
}

OptionParser::Take intoPace(Pace& pace) {
    return [&pace](const std::string& value) -> Failure {
        if (value != "100" && value != "answered") return wrong("--pace is 100 or answered");
        pace = value == "100" ? Pace::Every100Ms : Pace::Answered;
        return {};
    };
}

/// How the radio is reached and where Korvex's own files are.
void addPlaces(OptionParser& parser, Command& command) {
    parser.option("-r,--device", "DEVICE",
                  "the radio's serial device, for example /dev/ttyUSB0\n(else the port that is set in Korvex)",
                  into(command.device));
    parser.flag("--demo", "the simulated radio instead of a real one", command.demo);
    parser.option("-s", "SPEED,P,D,S", "line settings, for example 38400,n,8,2 (else as set in Korvex)",
                  intoLine(command.settings));
    parser.option("--handshaking", "N", "0 none, 1 XON/XOFF, 2 RTS, 3 RTS and XON/XOFF",
                  intoWhole(command.handshaking, 0, 3));
    parser.option("--pace", "PACE",
                  "answered: the next command when the answer has come (the default);\n100: one every 100 ms",
                  intoPace(command.pace));
    parser.option("--database", "FILE", "the menu descriptions (else those in Korvex's program folder)",
                  into(command.database));
    parser.option("--settings", "FILE", "the settings file of Korvex", into(command.settingsFile));
    std::vector<std::string> kinds;
    for (const auto& kind : fileKinds()) kinds.emplace_back(kind.name);
    parser.words("KIND", kinds);
    parser.words("PACE", {"answered", "100"});
    parser.words("OTHER", {"radio"});
}

/// How much is said, and in which form.
void addSpeech(OptionParser& parser, Command& command) {
    parser.flag("-q,--quiet", "no progress and no word beside errors; compare: the exit code alone", command.quiet);
    parser.flag("--json", "save, compare, ports, restore, restore-all: the report for programs", command.json);
}

/// What belongs to one command or two.
void addChoices(OptionParser& parser, Command& command) {
    parser.group("For restore and restore-all");
    parser.flag("--verify", "tells of every item, not only of those that are not as they should be", command.verify);
    parser.flag("--all", "writes what the radio has already, too", command.writesAll);
    parser.option("--safety-copy", "DIR", "where what the radio has now is kept first (else beside what is restored)",
                  into(command.safetyFolder));
    parser.flag("--no-safety-copy", "does not keep it", command.withoutSafetyCopy);
    parser.flag("--dry-run", "prints what would be sent, and sends nothing", command.dryRun);
    parser.flag("--with-cat", "restore menu, restore-all: the radio's CAT settings (menu items 028 to 030)\ntoo, last",
                command.withCat);
    parser.flag("--force", "a file that does not hold every menu item or register", command.force);
    parser.group("For other commands");
    parser.flag("--resume",
                "backup: goes on with the unfinished one in DIR (DIR may be its folder,\n\"....incomplete\"), if it is "
                "the same radio",
                command.resume);
    parser.option("--kind", "KIND", "compare, convert: what the files are, where their ending does not tell",
                  into(command.kind));
    parser.flag("--chirp", "convert: memory channels as CHIRP has them", command.chirp);
    parser.flag("--allow-transmit", "send, share: commands that key the transmitter, too", command.allowTransmit);
    parser.option("--link", "PATH", "share: makes the symbolic link PATH to the device", into(command.link));
    parser.option("--rigctld", "PORT", "share: serves hamlib's network protocol at localhost:PORT, too (4532 is usual)",
                  intoWhole(command.rigctlPort, 1, 65'535));
    parser.flag("--band-stack", "doctor: walks through the band stack, too, which changes bands for a while",
                command.bandStack);
    parser.flag("--with-settings",
                "description import: the settings columns too, in place of those that\nare there; doctor: the radio's "
                "settings stand in the report",
                command.withSettings);
}

void addVerbs(OptionParser& parser, Command& command) {
    using Verb = Command::Verb;
    const auto add = [&](Verb verb, const char* name, const std::vector<OptionParser::Operand>& operands,
                         const char* help) {
        parser.command(name, operands, help, [&command, verb] { command.verb = verb; });
    };
    const OptionParser::Operand kind{"KIND", command.kind};
    const OptionParser::Operand file{"FILE", command.file};
    const OptionParser::Operand folder{"DIR", command.file};
    add(Verb::Save, "save", {kind, file}, "radio -> file");
    add(Verb::Restore, "restore", {kind, file}, "file -> radio");
    add(Verb::Backup, "backup", {folder}, "the whole radio -> a new folder in DIR");
    add(Verb::RestoreAll, "restore-all", {folder}, "such a folder -> radio");
    add(Verb::Compare, "compare", {file, {"OTHER", command.otherFile}}, "item by item; \"radio\" in place of a file");
    add(Verb::Convert, "convert", {file, {"OTHER", command.otherFile}},
        "a file of any kind -> a table (.csv) for spreadsheets or, with\n--chirp, for CHIRP; and such a table -> file");
    add(Verb::Share, "share", {}, "a device that other programs open as if it were the radio, until Ctrl-C");
    add(Verb::Doctor, "doctor", {}, "looks for the radio, asks it how it answers, prints a report;\nnothing is set");
    add(Verb::Send, "send", {{"COMMAND", command.text}}, "sends a command such as 'FA;', prints the answer");
    add(Verb::Ports, "ports", {}, "lists the serial ports");
    add(Verb::DescriptionExport, "description export", {file}, "menu descriptions -> table to edit");
    add(Verb::DescriptionImport, "description import", {file}, "table or desktop database (.mdb) -> menu descriptions");
}

/// A line end behind the last command may stand: the windows send it, too.
std::string_view withoutLineEnd(std::string_view wire) {
    return wire.substr(0, wire.find_last_not_of("\r\n") + 1);
}

Failure checkText(Command& command) {
    const auto wire = wireFromUtf8(command.text);
    if (!wire) return wrong("the text to send holds characters that the radio does not have");
    command.text = *wire;
    const std::string_view typed = withoutLineEnd(command.text);
    if (holdsControlCharacter(typed)) {
        return wrong("the text to send holds a control character, and no command of the radio has one");
    }
    if (!keysTransmitter(command.text) || command.allowTransmit) return {};
    return wrong("this would key the transmitter; --allow-transmit says that you mean it");
}

Failure checkSpeech(const Command& command) {
    using Verb = Command::Verb;
    const bool reports = command.verb == Verb::Save || command.verb == Verb::Compare || command.verb == Verb::Ports ||
                         command.verb == Verb::Restore || command.verb == Verb::RestoreAll;
    if (command.json && !reports) return wrong("--json belongs to save, compare, ports, restore and restore-all");
    if (command.json && command.dryRun) return wrong("--json and --dry-run exclude each other");
    if (command.json && command.verb == Verb::Save && command.file == "-") {
        return wrong("standard output cannot take the file and the report: save into a file, or leave --json out");
    }
    return {};
}

Failure checkOptions(const Command& command) {
    using Verb = Command::Verb;
    if (command.verb == Verb::Print) return wrong("what is to be done? \"korvexctl ports\" is a beginning");
    if (command.demo && command.device) return wrong("--demo and -r exclude each other");
    const bool restores = command.verb == Verb::Restore || command.verb == Verb::RestoreAll;
    if ((command.verify || command.dryRun) && !restores) return wrong("--verify and --dry-run belong to a restore");
    if (command.verify && command.dryRun) return wrong("--verify and --dry-run exclude each other");
    const bool restoresMenu = command.verb == Verb::RestoreAll || (restores && command.kind == "menu");
    if (command.withCat && !restoresMenu) return wrong("--with-cat belongs to restore-all and restore menu");
    if (command.force && !restores) return wrong("--force belongs to a restore");
    const bool keeps = command.withoutSafetyCopy || command.safetyFolder;
    if ((command.writesAll || keeps) && !restores) {
        return wrong("--all, --safety-copy and --no-safety-copy belong to a restore");
    }
    if (command.withoutSafetyCopy && command.safetyFolder) {
        return wrong("--safety-copy and --no-safety-copy exclude each other");
    }
    if (command.chirp && command.verb != Verb::Convert) return wrong("--chirp belongs to convert");
    if ((!command.link.empty() || command.rigctlPort) && command.verb != Verb::Share) {
        return wrong("--link and --rigctld belong to share");
    }
    if (command.resume && command.verb != Verb::Backup) return wrong("--resume belongs to backup");
    if (command.withSettings && command.verb != Verb::DescriptionImport && command.verb != Verb::Doctor) {
        return wrong("--with-settings belongs to description import and doctor");
    }
    if (command.bandStack && command.verb != Verb::Doctor) return wrong("--band-stack belongs to doctor");
    return checkSpeech(command);
}

}  // namespace

Result<Command> parseArguments(const std::vector<std::string>& arguments) {
    Command command;
    OptionParser parser("korvexctl", "korvexctl: saves and restores what is set in a Yaesu FT-2000, without windows",
                        helpEnd());
    addVerbs(parser, command);
    addPlaces(parser, command);
    addSpeech(parser, command);
    addChoices(parser, command);
    addManual(parser);
    std::string print;
    if (auto failure = parser.read(arguments, print)) return *failure;
    if (!print.empty()) {
        command.text = print;
        return command;
    }
    if (auto failure = checkOptions(command)) return *failure;
    if (command.verb != Command::Verb::Send) return command;
    if (auto failure = checkText(command)) return *failure;
    return command;
}

}  // namespace korvex::cli
