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
#include "cli/WriteRecord.h"

namespace korvex::cli {

/// One thing to do while the port is open: a transfer between a file and the radio.
struct Step {
    std::string name;  ///< for messages
    Transfer transfer;
    std::string file;
    bool writes = false;          ///< into the radio: what it refuses is waited for
    bool refusalsAreTold = true;  ///< by the session; else the job looks at the record itself
    /// The transfer has ended well.
    std::function<void(const WriteRecord&)> after;
};

/// What a job works with.
struct Workshop {
    Program& program;
    const Command& command;
    std::vector<FileKind>& kinds;
    std::ostream& out;  ///< both show control characters as pictures
    std::ostream& err;
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

/// The steps of a kind.
Step saveStep(const FileKind& kind, const std::string& file);
Step restoreStep(const FileKind& kind, const std::string& file);
/// Saves what can be saved: an item that the radio refuses to tell is no reason to have nothing.
Step readStep(const FileKind& kind, const std::string& file);

/// The items of a file; a failure is told.
std::optional<DataItems> readItems(const Workshop& workshop, const std::string& kind, const std::string& file);

/// The commands that bring the items into the radio, a line each.
void printCommands(std::ostream& out, const DataItems& items);

}  // namespace korvex::cli
