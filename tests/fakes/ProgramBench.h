#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "app/Program.h"
#include "fakes/FakeDatabase.h"
#include "fakes/FakeDialogs.h"
#include "fakes/FakeDoors.h"
#include "fakes/VirtualClock.h"

namespace korvex::fakes {

/// A folder that is gone at the end of the test.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "korvex-test-XXXXXX").string();
        m_path = ::mkdtemp(pattern.data());
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    std::string path() const { return m_path.string(); }
    std::string file(const std::string& name) const { return (m_path / name).string(); }

private:
    std::filesystem::path m_path;
};

inline std::string fileContent(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

inline void writeFile(const std::string& path, const std::string& content) {
    std::ofstream(path, std::ios::binary) << content;
}

/// The whole program without windows on a machine that the test plays. `Ports` is ScriptedPorts, where the test is the
/// radio, or SimulatedPorts.
template <class Ports>
struct ProgramBench {
    VirtualClock clock;
    Ports ports{clock};
    FakeSettings settings;
    FakeFileDialog fileDialog;
    FakeMsgBox msgBox;
    FakeShell shell;
    FakeDatabase database;
    FakeDoors doors;
    TemporaryFolder folder;
    /// What another program does that is run; by itself there is none.
    RunChildProgram ranChildProgram = [](const ChildProgramOrder& order) -> Result<ChildProgramEnd> {
        return RuntimeError{errors::FileNotFound, order.program};
    };
    std::string timeOfDay = "2026-11-22 23:42:54";
    Program program{{clock,
                     ports,
                     settings,
                     fileDialog,
                     msgBox,
                     shell,
                     database,
                     folder.path(),
                     [this] { return timeOfDay; },
                     {},
                     {},
                     &doors,
                     [this](const ChildProgramOrder& order) { return ranChildProgram(order); }}};

    /// Opens the terminal and its port and lets the communication test come to its end.
    void openPort() {
        program.terminal.Form_Load();
        program.link.togglePort();
        clock.advance(1100);
    }
    std::string error() { return program.link.panels().Error; }
};

}  // namespace korvex::fakes
