#pragma once

#include <map>
#include <ostream>
#include <string>
#include <string_view>

#include "base/Signal.h"
#include "platform/FileDialog.h"
#include "platform/MsgBox.h"
#include "platform/ProgressWindow.h"
#include "platform/SettingsStore.h"
#include "platform/Shell.h"

namespace korvex::cli {

/// Boxes become lines on stderr. Nobody is there to answer: what could lose something is answered with no.
class ConsoleMsgBox : public MsgBox {
public:
    explicit ConsoleMsgBox(std::ostream& stream) : m_stream(stream) {}
    MsgAnswer show(const MsgBoxRequest& request) override;

private:
    std::ostream& m_stream;
};

/// Nobody is there to choose a file: those of the command line are read and written elsewhere.
class NoFileDialog : public FileDialog {
public:
    std::optional<std::string> show(const FileDialogRequest&) override { return std::nullopt; }
};

/// No desktop here.
class NoShell : public Shell {
public:
    Failure openTextEditor(const std::string&) override { return none(); }
    Failure openBrowser(const std::string&) override { return none(); }
    Failure openSystemInformation() override { return none(); }

private:
    static Failure none() { return RuntimeError{errors::FileNotFound, "there is no desktop"}; }
};

/// The program's settings as they are; what is changed lasts for this run. The folders of a backup are no places that
/// the windows should remember. What a check has shown of the radio goes to the keeper, if there is one: the windows
/// heed it, too.
class BorrowedSettings : public SettingsStore {
public:
    explicit BorrowedSettings(const SettingsStore& lender, SettingsStore* keeper = nullptr)
        : m_lender(lender), m_keeper(keeper) {}
    std::string get(std::string_view application, std::string_view section, std::string_view key,
                    std::string_view fallback) const override;
    void save(std::string_view application, std::string_view section, std::string_view key,
              std::string_view value) override;

private:
    const SettingsStore& m_lender;
    SettingsStore* m_keeper;
    std::map<std::string, std::string> m_changed;
};

/// The progress window as one line that is written over and over.
class ProgressLine {
public:
    ProgressLine(ProgressWindow& progress, std::ostream& stream);

private:
    void draw();
    void wipe();

    ProgressWindow& m_progress;
    std::ostream& m_stream;
    Connections m_connections;
};

}  // namespace korvex::cli
