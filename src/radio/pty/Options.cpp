#include "radio/pty/Options.h"

#include "options/OptionParser.h"

namespace korvex::pty {

namespace {

constexpr auto about =
    "ft2000sim: a simulated Yaesu FT-2000 on a pseudo terminal\n"
    "\n"
    "Prints the name of its device, which any CAT program can open at any speed, and serves it until it is\n"
    "ended (SIGTERM, SIGINT, SIGHUP). Nothing that it is told keys a transmitter.";

}  // namespace

Result<Options> parseOptions(const std::vector<std::string>& arguments) {
    Options options;
    OptionParser parser("ft2000sim", about, "\nFaults:\n" + std::string(faultHelp()));
    parser.option("--link", "PATH", "makes the symbolic link PATH to the device, and removes it at the end",
                  into(options.link));
    parser.option("--state", "FILE", "starts with the state in FILE, if there is one, and keeps it up to date",
                  into(options.stateFile));
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
    if (auto failure = parser.read(arguments, options.print)) return *failure;
    return options;
}

}  // namespace korvex::pty
