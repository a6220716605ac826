#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/StartWindow.h"
#include "platform/OwnersFiles.h"

namespace korvex {

/// Opens a file of the owner in the tool that is for its kind: from the command line, dropped on a window, chosen in
/// "Open File..." or among the recent ones. Nothing goes to the radio by it.
class FileOpener {
public:
    /// What is done with the files of one ending.
    struct Way {
        std::string_view ending;  ///< "mnu"
        StartWindow::Tool tool;
        std::function<void(const std::string& file)> load;  ///< once the tool's window is there
        /// Where the person may want the file in another tool; nothing: in `tool`.
        std::function<StartWindow::Tool(const std::string& file)> chosenTool = {};
    };

    /// `start` opens a tool as its button in the start window does.
    FileOpener(const OwnersDesk& desk, std::function<void(StartWindow::Tool)> start, std::vector<Way> ways);

    /// What cannot be opened is told in a box: more than one file, a folder, a file that is not there or not ours.
    void open(const std::vector<std::string>& files);
    void mnu_OpenFile_Click(const std::string& from);
    /// A tool's window has come up: the file that waits for it is loaded.
    void toolOpened(int tool);

    /// The recent files that can be opened so, newest first.
    std::vector<std::string> recent() const;

private:
    const Way* wayFor(const std::string& file) const;
    std::string endings(const std::string& before, const std::string& between) const;
    std::string whyNot(const std::string& file) const;

    OwnersDesk m_desk;
    std::function<void(StartWindow::Tool)> m_start;
    std::vector<Way> m_ways;
    struct Waiting {
        const Way* way;
        int tool;
        std::string file;
    };
    std::optional<Waiting> m_waiting;
};

}  // namespace korvex
