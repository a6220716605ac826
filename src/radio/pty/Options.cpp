#include "radio/pty/Options.h"

#include <sstream>

#include "options/OptionParser.h"

namespace korvex::pty {

namespace {

constexpr auto about =
    "ft2000sim: a simulated Yaesu FT-2000 on a pseudo terminal\n"
    "\n"
    "Prints the name of its device, which any CAT program can open at any speed, and serves it until it is\n"
    "ended (SIGTERM, SIGINT, SIGHUP). Nothing that it is told keys a transmitter.";

constexpr auto examples = R"(An FT-2000 for hamlib and for Korvex:

    ft2000sim --link /tmp/ft2000 --state radio.txt &
    rigctl -m 1029 -r /tmp/ft2000 -s 38400 f
    korvexctl -r /tmp/ft2000 save menu my.mnu)";

void addManual(OptionParser& parser) {
    std::istringstream lines{std::string(faultHelp())};
    std::vector<std::string> names;
    for (std::string name; lines >> name; std::getline(lines, name)) {
        const auto equals = name.find('=');  // "slow=MS", "deaf-once[=N]"
        const bool wantsValue = equals != std::string::npos && name[equals - 1] != '[';
        names.push_back(wantsValue ? name.substr(0, equals + 1) : name.substr(0, name.find('[')));
    }
    parser.words("NAME[=VALUE]", names);
    parser.exitCode("0", "ended by a signal, or the radio was unplugged by a fault");
    parser.exitCode("1", "a file, the link or the pseudo terminal cannot be made or used");
    parser.exitCode("2", "called wrongly");
    parser.manual("FAULTS", std::string(faultHelp()));
    parser.manual("EXAMPLES", examples);
    parser.manual("SEE ALSO", "korvex(1), korvexctl(1), rigctl(1)");
}

}  // namespace

Result<Options> parseOptions(const std::vector<std::string>& arguments) {
    Options options;
    OptionParser parser("ft2000sim", about, "\nFaults:\n" + std::string(faultHelp()));
    parser.option("--link", "PATH", "makes the symbolic link PATH to the device, and removes it at the end",
                  into(options.link));
    parser.option("--state", "FILE", "starts with the state in FILE, if there is one, and keeps it up to date",
                  into(options.stateFile));
    parser.option("--like", "REPORT",
                  "behaves as the radio did that korvexctl doctor has written REPORT about:\nforms, delays, refusals, "
                  "what it tells unasked, speed",
                  into(options.reportFile));
    parser.option("--turnaround", "MS", "from the end of a command to its answer (30)",
                  intoWhole(options.turnaroundMs, 0, 60'000));
    parser.option("--line", "SPEED,P,D,S", "characters take as long as on such a line: 38400,n,8,2 (else no time)",
                  [&options](const std::string& value) -> Failure {
                      const auto line = parseLineSettings(value);
                      if (!line) return line.error();
                      options.line = *line;
                      return {};
                  });
    parser.option("--fault", "NAME[=VALUE]", "lets something go wrong; may be given again and again",
                  [&options](const std::string& value) { return setFault(options.faults, value); });
    parser.option("--log", "FILE", "writes down what is said, with the time in seconds", into(options.logFile));
    addManual(parser);
    if (auto failure = parser.read(arguments, options.print)) return *failure;
    return options;
}

}  // namespace korvex::pty
