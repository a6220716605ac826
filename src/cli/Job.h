#pragma once

#include <functional>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "app/Program.h"
#include "cli/CommandLine.h"
#include "cli/Comparison.h"
#include "cli/Console.h"
#include "cli/FileKinds.h"
#include "cli/Files.h"

namespace korvex::cli {

/// One thing to do while the port is open.
struct Step {
    std::string name;  ///< for messages
    Transfer transfer;
    bool writes = false;          ///< into the radio
    bool refusalsAreTold = true;  ///< by the session; else the job looks at the outcome itself
    /// The transfer has ended well.
    std::function<void(const Outcome&)> after;
    bool mayCutLine = false;  ///< what the radio does not confirm is no failure
};

/// What a job works with.
struct Workshop {
    Program& program;
    const Command& command;
    std::vector<FileKind>& kinds;
    std::ostream& out;  ///< both show control characters as pictures
    std::ostream& err;
    Files files;
    ItemTitles titles;

    FileKind* kind(const std::string& name) const;
    void tell(const std::string& text) const { err << "korvexctl: " << text << "\n"; }
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
    /// A step has failed, or the user has had enough.
    virtual void abandon() {}
};

std::unique_ptr<Job> makeJob(const Workshop& workshop);

Step restoreStep(const FileKind& kind, const std::string& text);
/// `reading` is one of the kind's; `take` gets what was read, as a file has it.
Step readStep(const FileKind& kind, const Transfer& reading, const std::function<void(std::string text)>& take);

/// A data file, with what it says.
struct FileContent {
    std::string text;
    DataItems items;
};
/// A failure is told.
std::optional<FileContent> readFile(const Workshop& workshop, const std::string& kind, const std::string& file);
/// What was read from the radio says; a failure is told.
std::optional<DataItems> itemsRead(const Workshop& workshop, const std::string& kind, const std::string& text);

/// The commands that bring the items into the radio, a line each.
void printCommands(std::ostream& out, const DataItems& items);

}  // namespace korvex::cli
