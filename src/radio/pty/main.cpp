#include <csignal>
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "radio/pty/Options.h"
#include "radio/pty/PtyServer.h"

namespace {

volatile std::sig_atomic_t ended = 0;

void onEnd(int) {
    ended = 1;
}

/// Blocks the signals that end the program; they come in only where the server waits. Gives the mask to wait with.
sigset_t catchEndSignals() {
    sigset_t blocked;
    sigset_t before;
    sigemptyset(&blocked);
    struct sigaction action {};
    action.sa_handler = onEnd;
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        sigaddset(&blocked, signal);
        sigaction(signal, &action, nullptr);
    }
    sigprocmask(SIG_BLOCK, &blocked, &before);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) sigdelset(&before, signal);
    return before;
}

int complain(const korvex::RuntimeError& error, int status) {
    std::fprintf(stderr, "ft2000sim: %s\n", error.text.c_str());
    return status;
}

int run(const std::vector<std::string>& arguments) {
    constexpr int wrongArguments = 2;
    const auto options = korvex::pty::parseOptions(arguments);
    if (!options) {
        complain(options.error(), wrongArguments);
        std::fputs("Try ft2000sim --help.\n", stderr);
        return wrongArguments;
    }
    if (options->help) {
        std::fputs(korvex::pty::helpText().c_str(), stdout);
        return 0;
    }
    const sigset_t whileWaiting = catchEndSignals();
    std::signal(SIGPIPE, SIG_IGN);
    korvex::pty::PtyServer server(*options);
    if (const auto failure = server.start()) return complain(*failure, 1);
    server.serve(ended, whileWaiting);
    if (const auto failure = server.finish()) return complain(*failure, 1);
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return run(std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc));
    } catch (const std::exception& error) {  // out of memory, at most
        std::fprintf(stderr, "ft2000sim: %s\n", error.what());
        return 1;
    }
}
