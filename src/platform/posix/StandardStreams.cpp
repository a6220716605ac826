#include "platform/StandardStreams.h"

#include <fcntl.h>
#include <initializer_list>
#include <unistd.h>

namespace korvex::standardstreams {

void keepNumbersTaken() {
    for (const int number : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (::fcntl(number, F_GETFD) >= 0) continue;
        // The lowest free number is this one.
        const int flags = number == STDIN_FILENO ? O_WRONLY : O_RDONLY;
        [[maybe_unused]] const int taken = ::open("/dev/null", flags);
    }
}

bool errorsAreOnTerminal() {
    return ::isatty(STDERR_FILENO) == 1;
}

}  // namespace korvex::standardstreams
