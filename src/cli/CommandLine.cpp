#include "cli/CommandLine.h"

#include <algorithm>
#include <functional>
#include <map>

#include "base/CodePage.h"
#include "base/NumberText.h"
#include "cat/TransmitGuard.h"
#include "platform/LineSettings.h"

namespace korvex::cli {

namespace {

RuntimeError wrong(const std::string& why) {
    return {errors::InvalidPropertyValue, why};
}

/// Takes the arguments from the front.
class Arguments {
public:
    explicit Arguments(const std::vector<std::string>& all) : m_all(all) {}
    bool empty() const { return m_next == m_all.size(); }
    const std::string& take() { return m_all[m_next++]; }
    std::size_t left() const { return m_all.size() - m_next; }

private:
    const std::vector<std::string>& m_all;
    std::size_t m_next = 0;
};

Failure setLine(Command& command, const std::string& value) {
    if (auto parsed = parseLineSettings(value); !parsed) return parsed.error();
    command.settings = value;
    return {};
}

Failure setHandshaking(Command& command, const std::string& value) {
    const auto code = parseWhole(value);
    if (!code || *code < 0 || *code > 3) return wrong("--handshaking takes 0, 1, 2 or 3");
    command.handshaking = code;
    return {};
}

Failure setKind(Command& command, const std::string& value) {
    command.kind = value;
    return {};
}

struct Option {
    bool takesValue;
    std::function<Failure(Command&, const std::string&)> apply;
};

const std::map<std::string_view, Option>& options() {
    const auto flag = [](bool Command::*member) {
        return Option{false, [member](Command& command, const std::string&) -> Failure {
                          command.*member = true;
                          return {};
                      }};
    };
    const auto text = [](std::optional<std::string> Command::*member) {
        return Option{true, [member](Command& command, const std::string& value) -> Failure {
                          command.*member = value;
                          return {};
                      }};
    };
    const auto verb = [](Command::Verb wanted) {
        return Option{false, [wanted](Command& command, const std::string&) -> Failure {
                          command.verb = wanted;
                          return {};
                      }};
    };
    static const std::map<std::string_view, Option> all = {
        {"-r", text(&Command::device)},
        {"--device", text(&Command::device)},
        {"-s", {true, setLine}},
        {"--handshaking", {true, setHandshaking}},
        {"--database", text(&Command::database)},
        {"--settings", text(&Command::settingsFile)},
        {"--demo", flag(&Command::demo)},
        {"--kind", {true, setKind}},
        {"--verify", flag(&Command::verify)},
        {"--dry-run", flag(&Command::dryRun)},
        {"--with-cat", flag(&Command::withCat)},
        {"--force", flag(&Command::force)},
        {"--with-settings", flag(&Command::withSettings)},
        {"--allow-transmit", flag(&Command::allowTransmit)},
        {"-h", verb(Command::Verb::Help)},
        {"--help", verb(Command::Verb::Help)},
        {"--version", verb(Command::Verb::Version)},
    };
    return all;
}

Failure takeOption(Command& command, const std::string& name, Arguments& rest) {
    const auto found = options().find(name);
    if (found == options().end()) return wrong("unknown option " + name);
    if (!found->second.takesValue) return found->second.apply(command, {});
    if (rest.empty()) return wrong(name + " wants a value");
    return found->second.apply(command, rest.take());
}

struct VerbRow {
    Command::Verb verb;
    const char* form;
    std::vector<std::string Command::*> operands;
};

const std::map<std::string_view, VerbRow>& verbs() {
    using Verb = Command::Verb;
    static const std::map<std::string_view, VerbRow> all = {
        {"ports", {Verb::Ports, "ports", {}}},
        {"send", {Verb::Send, "send 'FA;'", {&Command::text}}},
        {"save", {Verb::Save, "save KIND FILE", {&Command::kind, &Command::file}}},
        {"restore", {Verb::Restore, "restore KIND FILE", {&Command::kind, &Command::file}}},
        {"backup", {Verb::Backup, "backup DIR", {&Command::file}}},
        {"restore-all", {Verb::RestoreAll, "restore-all DIR", {&Command::file}}},
        {"compare", {Verb::Compare, "compare FILE FILE, or FILE radio", {&Command::file, &Command::otherFile}}},
    };
    return all;
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

Failure checkOptions(const Command& command) {
    using Verb = Command::Verb;
    const bool restores = command.verb == Verb::Restore || command.verb == Verb::RestoreAll;
    if ((command.verify || command.dryRun) && !restores) return wrong("--verify and --dry-run belong to a restore");
    if (command.verify && command.dryRun) return wrong("--verify and --dry-run exclude each other");
    const bool restoresMenu = command.verb == Verb::RestoreAll || (restores && command.kind == "menu");
    if (command.withCat && !restoresMenu) return wrong("--with-cat belongs to restore-all and restore menu");
    if (command.force && !restores) return wrong("--force belongs to a restore");
    if (command.withSettings && command.verb != Verb::DescriptionImport) {
        return wrong("--with-settings belongs to description import");
    }
    return {};
}

Failure takeDescription(Command& command, const std::vector<std::string>& words) {
    const bool exporting = words.size() == 3 && words[1] == "export";
    const bool importing = words.size() == 3 && words[1] == "import";
    if (!exporting && !importing)
        return wrong("\"description\" is used so: korvexctl [options] description export FILE, or import FILE");
    command.verb = exporting ? Command::Verb::DescriptionExport : Command::Verb::DescriptionImport;
    command.file = words[2];
    return checkOptions(command);
}

Failure takeVerb(Command& command, const std::vector<std::string>& words) {
    if (words.front() == "description") return takeDescription(command, words);
    const auto row = verbs().find(words.front());
    if (row == verbs().end()) return wrong("unknown command " + words.front());
    const auto& [verb, form, operands] = row->second;
    if (words.size() != operands.size() + 1) {
        return wrong("\"" + words.front() + "\" is used so: korvexctl [options] " + form);
    }
    command.verb = verb;
    for (std::size_t i = 0; i < operands.size(); ++i) command.*operands[i] = words[i + 1];
    if (verb == Command::Verb::Send) return checkText(command);
    return checkOptions(command);
}

}  // namespace

Result<Command> parseArguments(const std::vector<std::string>& arguments) {
    Command command;
    Arguments rest(arguments);
    std::vector<std::string> words;
    while (!rest.empty()) {
        const std::string& argument = rest.take();
        if (argument.size() < 2 || argument.front() != '-') {
            words.push_back(argument);
        } else if (auto failure = takeOption(command, argument, rest)) {
            return *failure;
        }
    }
    const bool asked = std::any_of(arguments.begin(), arguments.end(), [](const std::string& argument) {
        return argument == "-h" || argument == "--help" || argument == "--version";
    });
    if (asked) return command;
    if (words.empty()) return wrong("what is to be done?");
    if (command.demo && command.device) return wrong("--demo and -r exclude each other");
    if (auto failure = takeVerb(command, words)) return *failure;
    return command;
}

std::string usage() {
    return "Usage: korvexctl [options] save KIND FILE      radio -> file\n"
           "       korvexctl [options] restore KIND FILE   file -> radio\n"
           "       korvexctl [options] backup DIR          the whole radio -> a new folder in DIR\n"
           "       korvexctl [options] restore-all DIR     such a folder -> radio\n"
           "       korvexctl [options] compare FILE FILE   item by item; \"radio\" in place of a FILE\n"
           "       korvexctl [options] send 'FA;'          sends a command, prints the answer\n"
           "       korvexctl [options] ports               lists the serial ports\n"
           "       korvexctl [options] description export FILE   menu descriptions -> table to edit\n"
           "       korvexctl [options] description import FILE   table -> menu descriptions\n"
           "\n"
           "Options:\n"
           "  -r, --device DEVICE   the radio's serial device, for example /dev/ttyUSB0\n"
           "                        (else the port that is set in Korvex)\n"
           "  --demo                the simulated radio instead of a real one\n"
           "  -s SPEED,P,D,S        line settings, for example 38400,n,8,2 (else as set in Korvex)\n"
           "  --handshaking N       0 none, 1 XON/XOFF, 2 RTS, 3 RTS and XON/XOFF\n"
           "  --database FILE       the menu descriptions (else those in Korvex's program folder)\n"
           "  --settings FILE       the settings file of Korvex\n"
           "  --allow-transmit      lets \"send\" send a command that keys the transmitter\n"
           "  --verify              restore: reads back what was written and tells of every item\n"
           "  --dry-run             restore: prints what would be sent, and sends nothing\n"
           "  --with-cat            restore menu, restore-all: the radio's CAT settings (menu items 028 to 030) too,\n"
           "                        last\n"
           "  --force               restore: a file that does not hold every menu item or register\n"
           "  --with-settings       description import: the settings columns too, in place of those that are there\n"
           "  --kind KIND           compare: what the files are, where their ending does not tell\n"
           "  -h, --help  --version\n"
           "\n"
           "Kinds: menu, memory, list, bandstack, keyer. FILE may be \"-\": standard input or output.\n"
           "Exit codes: 0 done, 1 compare: different, --verify: not all took, 2 usage, 3 port,\n"
           "            4 no or wrong answers, or not all (a backup that is made all the same prints its\n"
           "            folder), 5 file or its own output, 128 + N signal N\n";
}

}  // namespace korvex::cli
