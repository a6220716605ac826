#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/RuntimeError.h"
#include "cat/Pace.h"

namespace korvex::cli {

/// What korvexctl is asked to do.
struct Command {
    enum class Verb {
        Print,  ///< `text`, for --help and --version
        Ports,
        Send,
        Save,
        Restore,
        Backup,
        RestoreAll,
        Compare,
        Share,
        Doctor,
        Convert,
        DescriptionExport,
        DescriptionImport
    };
    Verb verb = Verb::Print;
    std::string kind;                     ///< of file; of Compare only where it is given
    std::string file;                     ///< or folder, as the verb has it
    std::string otherFile;                ///< for Compare; "radio" is the radio
    std::string text;                     ///< for Send, wire text; for Print
    bool demo = false;                    ///< the simulated radio instead of a real one
    std::optional<std::string> device;    ///< -r; else the port that the windows use
    std::optional<std::string> settings;  ///< -s; else as the windows use it
    std::optional<int> handshaking;       ///< 0..3
    Pace pace = Pace::Answered;
    std::optional<std::string> settingsFile;  ///< where the program keeps its settings
    std::optional<std::string> database;      ///< the description database; else that of the program folder
    bool allowTransmit = false;
    bool chirp = false;             ///< for Convert: CHIRP's table
    std::string link;               ///< for Share: a second name of the device; empty for none
    std::optional<int> rigctlPort;  ///< for Share
    bool bandStack = false;         ///< for Doctor: walks through the band stack, too
    bool resume = false;            ///< a backup that an earlier one has left unfinished
    bool verify = false;            ///< tell of every item of a restore
    bool writesAll = false;         ///< also what the radio has already
    bool withoutSafetyCopy = false;
    std::optional<std::string> safetyFolder;  ///< for the folder of the safety copy; else beside what is restored
    bool quiet = false;                       ///< errors only
    bool json = false;                        ///< the report for programs
    bool dryRun = false;                      ///< print what would be sent
    bool withCat = false;                     ///< the radio's own CAT settings too
    bool force = false;                       ///< also a file that does not hold everything
    bool withSettings = false;  ///< the settings columns of the descriptions too; for Doctor, the radio's own answers
};

/// Exit codes, for scripts.
enum class ExitCode {
    Done = 0,
    Different = 1,  ///< two sides of a comparison, or what was written and what the radio has
    Usage = 2,
    Port = 3,          ///< no such port, no permission, held by another program, gone
    Answers = 4,       ///< the radio answered nothing, not all, or refused
    File = 5,          ///< cannot be read or written, or is no file of its kind
    Interrupted = 130  ///< Ctrl-C; the program ends with 128 and the number of the signal that it was
};

/// The arguments behind the program's name; the error's text is for the user.
Result<Command> parseArguments(const std::vector<std::string>& arguments);

}  // namespace korvex::cli
