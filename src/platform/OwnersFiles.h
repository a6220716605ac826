#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Property.h"
#include "base/RuntimeError.h"
#include "platform/FileDialog.h"
#include "platform/MsgBox.h"
#include "platform/Settings.h"

namespace korvex {

/// What it takes to ask the owner for a file.
struct OwnersDesk {
    SettingsStore& settings;
    FileDialog& dialog;
    MsgBox& msgBox;
    std::string programFolder;  ///< UTF-8, without a slash at the end
};

/// A file that is wanted of the owner.
struct FileWanted {
    std::string title;                   ///< of the dialog, UTF-8; empty: the system's own
    std::string ending;                  ///< "mnu"
    bool incomplete = false;             ///< a save proposes a name that says so, "my-incomplete.mnu"
    std::vector<std::string> also = {};  ///< other endings that such a file may have: "mdb"
};

/// How it ended when the owner was asked for a file.
struct FileEnd {
    std::optional<std::string> file;  ///< the one that was chosen last
    Failure failure;                  ///< why it was not read or written; neither: the owner cancelled
};

/// The files of the owner that share a remembered path: asked for in dialogs that begin there, read and written. Only a
/// file that was read or written is remembered, at once and for the next start.
class OwnersFiles {
public:
    using Tell = std::function<void(const RuntimeError&)>;
    using MayReplace = std::function<bool(const std::string& file)>;

    OwnersFiles(const OwnersDesk& desk, const SettingsKey<OwnersPath>& key) : m_desk(desk), m_key(key) { recall(); }

    Property<std::string> path;  ///< UTF-8; a file, or a folder at first
    /// The path as it is stored.
    void recall() { path = readSetting(m_desk.settings, m_key, m_desk.programFolder); }
    void store() { writeSetting(m_desk.settings, m_key, path); }
    void remember(const std::string& file);

    /// Only asks.
    std::optional<std::string> askToOpen(const FileWanted& wanted) {
        return ask(FileDialogRequest::Mode::Open, wanted);
    }
    std::optional<std::string> askForFolder(const std::string& title);
    /// Asks for a file and gives its content to `take`, whose failure is the reading's.
    FileEnd read(const FileWanted& wanted, const std::function<Failure(const std::string& content)>& take);
    /// Asks for a file name and writes there. A failure is told, and another name asked for, until the content is saved
    /// or the dialog is cancelled: what was read from a radio for minutes is not lost to a full stick. `mayReplace`, if
    /// there is one, has the last word on a file name; its No cancels the save.
    FileEnd write(const FileWanted& wanted, std::string_view content, const Tell& tell,
                  const MayReplace& mayReplace = {});

    /// Tells a file error in a box whose title is chosen by the error number.
    void tell(const RuntimeError& error, const std::string& pathNotFound = "Path wrong");
    MsgBox& msgBox() { return m_desk.msgBox; }

private:
    std::optional<std::string> ask(FileDialogRequest::Mode mode, const FileWanted& wanted);

    OwnersDesk m_desk;
    SettingsKey<OwnersPath> m_key;
};

}  // namespace korvex
