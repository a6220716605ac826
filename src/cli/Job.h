#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "app/Program.h"
#include "cli/CommandLine.h"
#include "cli/Comparison.h"
#include "cli/Console.h"
#include "cli/Files.h"

namespace korvex::cli {

/// Something that goes on between program and radio while the port is open.
struct Step {
    std::string name;             ///< for messages
    std::function<void()> start;  ///< may tell the end before it returns
    Signal<const Outcome&>* ended = nullptr;
    bool watchesTheRadio = false;                        ///< and gives it up by itself; else that is done from outside
    std::function<std::string()> objection = {};         ///< why what was read is not worth a file; empty when it is
    std::function<std::vector<std::string>()> why = {};  ///< it failed, where it knows more than how it ended
    std::function<void()> after = {};                    ///< it has ended well
};

/// What a job works with.
struct Workshop {
    Program& program;
    const Command& command;
    std::ostream& out;  ///< both show control characters as pictures
    std::ostream& err;
    Files files;
    ItemTitles titles;

    void tell(const std::string& text) const { err << "korvexctl: " << text << "\n"; }
    /// What is no error.
    void note(const std::string& text) const {
        if (!command.quiet) tell(text);
    }
};

/// What a command does with files and radio, in steps that the session runs one after the other.
class Job {
public:
    virtual ~Job() = default;
    /// Before the port is opened. An exit code ends the command here.
    virtual std::optional<ExitCode> prepare() = 0;
    virtual std::vector<Step> steps() = 0;
    /// Every step has ended well. The exit code is Done unless the job found something.
    virtual ExitCode conclude() { return ExitCode::Done; }
    /// Whether a signal is how it ends when all is well.
    virtual bool goesOnUntilInterrupted() const { return false; }
    /// Looks for the radio at other speeds, or at other ports if none was named, when it does not answer.
    virtual bool looksForRadio() const { return false; }
    /// A step has failed, or the user has had enough.
    virtual void abandon() {}
};

std::unique_ptr<Job> makeJob(const Workshop& workshop);

/// Nothing, and a word, for a name that no kind has.
const FileKind* kindNamed(const Workshop& workshop, const std::string& name);

/// Reads a kind; `take` gets what was read, as a file has it.
Step readStep(const Workshop& workshop, const FileKind& kind, const std::function<void(std::string text)>& take);

/// What a data file says. A failure is told.
std::optional<DataItems> itemsOfFile(const Workshop& workshop, const FileKind& kind, const std::string& file);

}  // namespace korvex::cli
