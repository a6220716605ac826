#include "cli/Manual.h"

namespace korvex::cli {

namespace {

constexpr auto kinds = R"(menu: all menu items (.mnu)

memory: all memory channels as the radio tells them (.mem)

list: the memory channels as a list with remarks (.mef)

scanlimits: the nine pairs of scan limits, P1L to P9U, where the radio tells them (.pms)

bandstack: the band stack registers (.bsr)

keyer: the CW message memories (.kem)

FILE may be "-" in every command: standard input or standard output. What is asked for goes to standard output, messages go
to standard error, and progress is shown only when that is a terminal.)";

constexpr auto restoring =
    R"(restore and restore-all look at the files first, keep what the radio has as a backup beside what is
restored, write only what differs and read it back. A restore that was cut off says what the radio holds; the same command
again writes what is missing, and restore-all of the safety copy leads back.

The radio's own CAT settings, the menu items 028 to 030, can cut the line. They are written with --with-cat only, and last.)";

constexpr auto files =
    R"(~/.config/Korvex/Korvex.ini: the settings, which korvexctl shares with the windows; among them port and
line settings.

~/.local/share/Korvex/FT2000_Menu.mdb: the owner's table of menu descriptions.

~/.local/share/Korvex/files: where the windows keep the owner's files.)";

constexpr auto examples = R"(Where is the radio, and does it answer?

    korvexctl ports
    korvexctl -r /dev/ttyUSB0 -s 38400,n,8,2 send 'FA;'

The whole radio into a dated folder, and back:

    korvexctl -r /dev/ttyUSB0 backup ~/radio
    korvexctl restore-all --dry-run ~/radio/korvex-2026-11-22-234254
    korvexctl -r /dev/ttyUSB0 restore-all ~/radio/korvex-2026-11-22-234254

The menu into a compressed file every night, without a word unless something is wrong:

    korvexctl --quiet save menu - | gzip > menu.mnu.gz

What somebody has changed since the last contest:

    korvexctl compare contest.mnu radio

Without a radio, with the simulated one:

    korvexctl --demo save menu try.mnu)";

}  // namespace

void addManual(OptionParser& parser) {
    parser.exitCode("0", "done");
    parser.exitCode("1", "compare: the sides differ; restore, restore-all: the radio is not as the files say");
    parser.exitCode("2", "called wrongly");
    parser.exitCode("3", "the port: not there, not allowed, in use, or gone");
    parser.exitCode(
        "4", "the radio gave no or wrong answers, or not all\n(a backup that is made all the same prints its folder)");
    parser.exitCode("5", "a file, or the program's own output, cannot be read or written");
    parser.exitCode("128 + N", "ended by signal N (130: Ctrl-C); nothing more was sent or written");
    parser.manual("KINDS OF FILES", kinds);
    parser.manual("RESTORING", restoring);
    parser.manual("FILES", files);
    parser.manual("EXAMPLES", examples);
    parser.manual("SEE ALSO", "korvex(1), ft2000sim(1), rigctl(1)");
}

}  // namespace korvex::cli
