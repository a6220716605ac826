#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "platform/EndSignals.h"
#include "platform/StandardStreams.h"
#include "radio/pty/Messages.h"
#include "radio/pty/Options.h"
#include "radio/pty/PtyServer.h"

namespace {

using korvex::pty::complain;
using korvex::pty::show;

int run(const std::vector<std::string>& arguments) {
    constexpr int wrongArguments = 2;
    const auto options = korvex::pty::parseOptions(arguments);
    if (!options) {
        complain(options.error().text + "\nTry ft2000sim --help.");
        return wrongArguments;
    }
    if (!options->print.empty()) return show(options->print);
    korvex::standardstreams::keepNumbersTaken();
    korvex::endsignals::ignoreBrokenPipes();
    korvex::endsignals::watch();
    korvex::pty::PtyServer server(*options);
    if (const auto failure = server.start()) return complain(failure->text);
    if (const int failed = show(server.deviceName() + "\n")) return failed;
    server.serve();
    if (const auto failure = server.finish()) return complain(failure->text);
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return run(std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc));
    } catch (const std::exception& error) {  // out of memory, at most
        return complain(error.what());
    }
}
