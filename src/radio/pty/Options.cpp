#include "radio/pty/Options.h"

#include <algorithm>
#include <array>

#include "base/NumberText.h"

namespace korvex::pty {

namespace {

RuntimeError wrong(const std::string& text) {
    return {errors::InvalidPropertyValue, text};
}

Failure takeLink(Options& options, const std::string& value) {
    options.link = value;
    return {};
}

Failure takeStateFile(Options& options, const std::string& value) {
    options.stateFile = value;
    return {};
}

Failure takeLogFile(Options& options, const std::string& value) {
    options.logFile = value;
    return {};
}

Failure takeTurnaround(Options& options, const std::string& value) {
    constexpr int longest = 60'000;
    const auto ms = parseWhole(value);
    if (!ms || *ms < 0 || *ms > longest) return wrong("--turnaround needs 0 to 60000 ms, not \"" + value + "\".");
    options.turnaroundMs = *ms;
    return {};
}

Failure takeFault(Options& options, const std::string& value) {
    return setFault(options.faults, value);
}

struct Entry {
    std::string_view name;
    Failure (*take)(Options&, const std::string&);
};
constexpr auto entries = std::to_array<Entry>({
    {"--link", takeLink},
    {"--state", takeStateFile},
    {"--turnaround", takeTurnaround},
    {"--fault", takeFault},
    {"--log", takeLogFile},
});

}  // namespace

Result<Options> parseOptions(const std::vector<std::string>& arguments) {
    Options options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const auto equals = arguments[i].find('=');
        const std::string name = arguments[i].substr(0, equals);
        if (arguments[i] == "--help" || arguments[i] == "-h") {
            options.help = true;
            continue;
        }
        const auto* entry =
            std::find_if(entries.begin(), entries.end(), [&name](const auto& e) { return e.name == name; });
        if (entry == entries.end()) return wrong("There is no option \"" + arguments[i] + "\".");
        const bool joined = equals != std::string::npos;
        if (!joined && i + 1 == arguments.size()) return wrong(name + " needs a value.");
        const std::string value = joined ? arguments[i].substr(equals + 1) : arguments[++i];
        if (value.empty()) return wrong(name + " needs a value.");
        if (auto failure = entry->take(options, value)) return *failure;
    }
    return options;
}

std::string helpText() {
    return "ft2000sim: a simulated Yaesu FT-2000 on a pseudo terminal\n"
           "\n"
           "usage: ft2000sim [OPTION]...\n"
           "\n"
           "Prints the name of its device, which any CAT program can open at any speed, and serves it until it is\n"
           "ended (SIGTERM, SIGINT, SIGHUP). Nothing that it is told keys a transmitter.\n"
           "\n"
           "  --link PATH           makes the symbolic link PATH to the device, and removes it at the end\n"
           "  --state FILE          starts with the state in FILE, if there is one, and keeps it up to date\n"
           "  --turnaround MS       from the end of a command to its answer (30)\n"
           "  --fault NAME[=VALUE]  lets something go wrong; may be given again and again\n"
           "  --log FILE            writes down what is said, with the time in seconds\n"
           "  --help                shows this page\n"
           "\n"
           "Faults:\n" +
           std::string(faultHelp());
}

}  // namespace korvex::pty
