#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "cat/Outcome.h"
#include "cat/StatusPanels.h"
#include "platform/OwnersFiles.h"

namespace korvex {

/// How asking for a file ended, for those who wait for an operation of which it is a step.
inline Outcome::Kind outcomeOf(const FileEnd& end) {
    if (end.failure) return Outcome::Kind::FileFailed;
    return end.file ? Outcome::Kind::Done : Outcome::Kind::Cancelled;
}

/// A file whose lines are to be written into the radio.
struct FileToRestore {
    FileWanted wanted;
    std::string kind;      ///< "menu"
    std::string boxTitle;  ///< of what is told of it
    std::function<Result<std::vector<std::string>>(const std::string& content)> linesOf;
};

struct RestoreLines {
    Outcome::Kind kind = Outcome::Kind::Cancelled;
    std::string file = {};
    std::vector<std::string> lines = {};  ///< with `Done`
};

/// Asks for the file. What speaks against it is told in a box, and in the panel when it is none of its kind.
RestoreLines askForLines(OwnersFiles& files, StatusPanels& panels, const FileToRestore& wanted);

}  // namespace korvex
