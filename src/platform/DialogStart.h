#pragma once

#include <string>
#include <string_view>

#include "platform/FileDialog.h"

namespace korvex {

/// Where a file dialog opens. Paths are UTF-8.
struct DialogStart {
    std::string folder;    ///< exists; empty where nothing is left of the remembered path
    std::string fileName;  ///< what stands in the name field; may be empty

    bool operator==(const DialogStart&) const = default;
};

/// The remembered path may be a file or a folder, and either may be gone by now: then the nearest folder above it is
/// taken. A file name is offered when there is such a file, and for saving also when it looks like one (it has an
/// extension); and only for its own kind, which the first pattern of the filter tells: several kinds share a path, and
/// Enter must not put a menu over the memories.
DialogStart dialogStart(const FileDialogRequest& request);

/// Adds the extension to a file name that has none.
std::string withDefaultExtension(std::string file, std::string_view extension);

}  // namespace korvex
