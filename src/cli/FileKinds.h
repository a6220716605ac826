#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "app/Program.h"
#include "terminal/TransferEnd.h"

namespace korvex::cli {

/// One direction of a kind of file: what starts it, what tells of its end, and what speaks against keeping the result.
struct Transfer {
    /// Gives back how it ended if it is over already.
    std::function<std::optional<TransferEnd>()> start;
    Signal<const Outcome&>* ended = nullptr;
    /// Reading only: why what was read is not worth a file; empty when it is whole.
    std::function<std::string()> objection;
    /// What is still to be done when the transfer has ended well: writing the file, where a window leaves that to the
    /// user.
    std::function<TransferEnd()> finish;
    /// As `objection`, but an item that the radio refuses to tell is none. Without it `objection` holds.
    std::function<std::string()> gap = {};
    /// Why it failed, where the transfer knows more than how it ended.
    std::function<std::string()> why = {};
};

/// A kind of file that can be saved and restored by name. Another tool adds a row.
struct FileKind {
    std::string name;
    Transfer save;
    Transfer restore;
};

std::vector<FileKind> fileKinds(Program& program);

}  // namespace korvex::cli
