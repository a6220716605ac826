#pragma once

#include <optional>
#include <string>
#include <utility>

#include "platform/FileDialog.h"

namespace korvex {

/// A file dialog that a person has answered before it is asked: on the command line, by dropping a file on a window, or
/// by picking a recent one. The tool that is told to load then loads that file, with all its own questions.
class GivenFile : public FileDialog {
public:
    explicit GivenFile(FileDialog& dialog) : m_dialog(dialog) {}

    /// While `load` runs the first question for a file to open is answered with this one.
    template <class Load>
    void answering(const std::string& file, Load load) {
        m_file = file;
        load();
        m_file.reset();
    }

    std::optional<std::string> show(const FileDialogRequest& request) override {
        if (m_file && request.mode == FileDialogRequest::Mode::Open) return std::exchange(m_file, std::nullopt);
        return m_dialog.show(request);
    }

private:
    FileDialog& m_dialog;
    std::optional<std::string> m_file;
};

}  // namespace korvex
