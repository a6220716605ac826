#pragma once

#include <functional>
#include <string>
#include <vector>

#include "app/Program.h"

namespace korvex::cli {

/// Something that goes on between program and radio: what starts it and what tells of its end, maybe from inside the
/// start.
struct Transfer {
    std::function<void()> start;
    Signal<const Outcome&>* ended = nullptr;
    bool givesUpByItself = false;  ///< when the radio has gone silent; else that is watched from outside
    /// Reading only: why what was read is not worth a file; empty when it is.
    std::function<std::string()> objection = {};
    /// Why it failed, where the transfer knows more than how it ended.
    std::function<std::string()> why = {};
    /// What is to be said of one that ended well.
    std::function<std::vector<std::string>()> remarks = {};
};

/// A kind of file that can be saved and restored by name. What is read and written is the text of such a file: where it
/// comes from and where it goes, no transfer knows. Another tool adds a row.
struct FileKind {
    std::string name;
    Transfer readWhole;                 ///< an item that the radio refuses to tell is an objection
    Transfer read;                      ///< such an item is none
    std::function<std::string()> text;  ///< what the last reading read
    /// `text` is one that `dataItems` takes.
    std::function<Transfer(const std::string& text)> write;
};

std::vector<FileKind> fileKinds(Program& program);

}  // namespace korvex::cli
