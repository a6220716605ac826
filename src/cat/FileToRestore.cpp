#include "cat/FileToRestore.h"

#include <filesystem>
#include <utility>

#include "platform/TextFile.h"

namespace korvex {

RestoreLines askForLines(OwnersFiles& files, StatusPanels& panels, const FileToRestore& wanted) {
    const auto file = files.askToOpen(wanted.wanted);
    if (!file) return {};
    const auto content = textfile::read(*file);
    if (!content) {
        files.tell(content.error());
        return {Outcome::Kind::FileFailed};
    }
    files.remember(*file);
    auto lines = wanted.linesOf(*content);
    if (lines) return {Outcome::Kind::Done, *file, std::move(*lines)};
    const std::string why = lines.error().text + ", nothing was sent";
    panels.Error = why;
    const std::string name = std::filesystem::path(*file).filename().string();
    files.msgBox().exclamation(name + " is no " + wanted.kind + " file that can be restored.\n" + why + ".",
                               wanted.boxTitle);
    return {Outcome::Kind::FileFailed};
}

}  // namespace korvex
