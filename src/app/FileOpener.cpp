#include "app/FileOpener.h"

#include <algorithm>
#include <filesystem>
#include <utility>

#include "base/AsciiText.h"
#include "platform/RecentFiles.h"
#include "platform/TextFile.h"

namespace korvex {

namespace {

std::string lowerEnding(const std::string& file) {
    const std::string ending = inLowerCase(std::filesystem::path(file).extension().string());
    return ending.empty() ? ending : ending.substr(1);
}

std::string absolute(const std::string& file) {
    std::error_code error;
    const auto path = std::filesystem::absolute(file, error);
    return error ? file : path.lexically_normal().string();
}

}  // namespace

FileOpener::FileOpener(const OwnersDesk& desk, std::function<void(StartWindow::Tool)> start, std::vector<Way> ways)
    : m_desk(desk), m_start(std::move(start)), m_ways(std::move(ways)) {}

const FileOpener::Way* FileOpener::wayFor(const std::string& file) const {
    const std::string ending = lowerEnding(file);
    const auto way =
        std::find_if(m_ways.begin(), m_ways.end(), [&ending](const Way& each) { return each.ending == ending; });
    return way == m_ways.end() ? nullptr : &*way;
}

std::string FileOpener::endings(const std::string& before, const std::string& between) const {
    std::string text;
    for (const auto& way : m_ways) text += (text.empty() ? "" : between) + before + std::string(way.ending);
    return text;
}

std::string FileOpener::whyNot(const std::string& file) const {
    std::error_code error;
    if (std::filesystem::is_directory(file, error)) {
        return file +
               " is a folder. A backup of the whole radio is taken by \"Restore whole Radio...\" in the "
               "terminal's menu \"More\".";
    }
    if (!std::filesystem::exists(file, error)) return "There is no file " + file + ".";
    if (!wayFor(file)) return file + " is no file of this program, whose files end in " + endings(".", ", ") + ".";
    const auto content = textfile::read(file);
    return content ? std::string() : content.error().text;
}

void FileOpener::open(const std::vector<std::string>& files) {
    if (files.empty()) return;
    if (files.size() > 1) {
        return m_desk.msgBox.exclamation(std::to_string(files.size()) +
                                         " files were given. One is opened at a time: please give it alone.");
    }
    const std::string file = absolute(files.front());
    if (const std::string why = whyNot(file); !why.empty()) return m_desk.msgBox.exclamation(why);
    const Way* way = wayFor(file);
    const StartWindow::Tool tool = way->chosenTool ? way->chosenTool(file) : way->tool;
    m_waiting = Waiting{way, tool, file};
    m_start(tool);
}

void FileOpener::mnu_OpenFile_Click(const std::string& from) {
    const std::string filter = "Files of this program|" + endings("*.", ";") + "|All Files (*.*)|*.*";
    const auto file = m_desk.dialog.show({FileDialogRequest::Mode::Open, "Open File", filter, from, ""});
    if (file) open({*file});
}

void FileOpener::toolOpened(int tool) {
    const auto waiting = std::exchange(m_waiting, std::nullopt);
    if (waiting && waiting->tool == tool) waiting->way->load(waiting->file);
}

std::vector<std::string> FileOpener::recent() const {
    auto files = recentfiles::list(m_desk.settings);
    std::erase_if(files, [this](const std::string& file) { return !wayFor(file); });
    return files;
}

}  // namespace korvex
