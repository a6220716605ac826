#pragma once

#include <optional>
#include <string>

namespace korvex {

/// What a file dialog shows. All texts UTF-8.
struct FileDialogRequest {
    enum class Mode { Open, Save, Folder };
    Mode mode = Mode::Open;
    std::string title;
    std::string filter;            ///< "Flat File (*.mnu)|*.mnu|All Files (*.*)|*.*"; the first entry is selected
    std::string start;             ///< the remembered path: a folder, or a file that was chosen before
    std::string defaultExtension;  ///< without dot; added to a name that has none; may be empty
};

/// Asks for a file name, or a folder that exists or can be made. A save dialog asks before an existing file is chosen.
class FileDialog {
public:
    virtual ~FileDialog() = default;
    /// The full file name; nothing when the user cancelled.
    virtual std::optional<std::string> show(const FileDialogRequest& request) = 0;
};

}  // namespace korvex
