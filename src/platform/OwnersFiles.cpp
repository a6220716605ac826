#include "platform/OwnersFiles.h"

#include <filesystem>

#include "platform/RecentFiles.h"
#include "platform/TextFile.h"

namespace korvex {

namespace {

FileDialogRequest request(FileDialogRequest::Mode mode, const FileWanted& wanted, const std::string& start) {
    std::string pattern = "*." + wanted.ending;
    for (const auto& ending : wanted.also) pattern += ";*." + ending;
    return {mode, wanted.title, "Flat File (" + pattern + ")|" + pattern + "|All Files (*.*)|*.*", start,
            wanted.ending};
}

constexpr std::string_view mark = "-incomplete";

std::string withoutMark(const std::string& stem) {
    return stem.ends_with(mark) ? stem.substr(0, stem.size() - mark.size()) : stem;
}

/// The remembered path, where a file of its kind has the mark of what is incomplete just when it is. What is incomplete
/// has a name in any case.
std::string proposed(const std::string& path, const FileWanted& wanted) {
    const std::filesystem::path remembered(path);
    const std::string extension = "." + wanted.ending;
    const bool hasName = remembered.extension() == extension;
    if (!hasName && !wanted.incomplete) return path;
    std::error_code ignored;
    const bool isFolder = std::filesystem::is_directory(remembered, ignored) || !remembered.has_extension();
    const auto folder = isFolder ? remembered : remembered.parent_path();
    const std::string stem = hasName ? withoutMark(remembered.stem().string()) : "radio";
    return (folder / (stem + (wanted.incomplete ? std::string(mark) : "") + extension)).string();
}

}  // namespace

void OwnersFiles::remember(const std::string& file) {
    path = file;
    store();
    recentfiles::add(m_desk.settings, file);
}

std::optional<std::string> OwnersFiles::ask(FileDialogRequest::Mode mode, const FileWanted& wanted) {
    return m_desk.dialog.show(request(mode, wanted, path));
}

std::optional<std::string> OwnersFiles::askForFolder(const std::string& title) {
    return m_desk.dialog.show({FileDialogRequest::Mode::Folder, title, "", path, ""});
}

FileEnd OwnersFiles::read(const FileWanted& wanted, const std::function<Failure(const std::string&)>& take) {
    FileEnd end{askToOpen(wanted), {}};
    if (!end.file) return end;
    const auto content = textfile::read(*end.file);
    end.failure = content ? take(*content) : content.error();
    if (!end.failure) remember(*end.file);
    return end;
}

FileEnd OwnersFiles::write(const FileWanted& wanted, std::string_view content, const Tell& tell,
                           const MayReplace& mayReplace) {
    FileEnd end;
    auto asked = request(FileDialogRequest::Mode::Save, wanted, proposed(path, wanted));
    while (const auto file = m_desk.dialog.show(asked)) {
        if (mayReplace && !mayReplace(*file)) return {};
        end = {file, textfile::write(*file, content)};
        if (!end.failure) {
            remember(*file);
            break;
        }
        tell(*end.failure);
        asked.start = *file;  // its folder may be the right one
    }
    return end;
}

void OwnersFiles::tell(const RuntimeError& error, const std::string& pathNotFound) {
    std::string title;  // a full disk or a broken device: the text says it all under the program's own title
    switch (error.number) {
        case errors::FileNotFound: title = "File not found"; break;
        case errors::PathFileAccess: title = "Path wrong"; break;
        case errors::PathNotFound: title = pathNotFound; break;
        default: break;
    }
    m_desk.msgBox.stop(error.text, title);
}

}  // namespace korvex
