#pragma once

#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>

#include "fakes/FakeDialogs.h"
#include "fakes/VirtualClock.h"
#include "memory/MemoryManager.h"
#include "platform/TextFile.h"
#include "radio/SimulatedPorts.h"

namespace korvex {

/// The memory tools with a simulated radio at port 1, a clock that the test moves, and a folder for files.
class MemoryBench : public ::testing::Test {
protected:
    MemoryBench() : m_folder(std::filesystem::temp_directory_path() / ("korvex_memory_" + std::to_string(getpid()))) {
        std::filesystem::create_directories(m_folder);
        for (auto* ended : {&memory.reader.ended, &memory.restorer.ended, &memory.listWriter.ended}) {
            m_connections += ended->connect([this](TransferEnd end) { ends.push_back(end); });
        }
    }
    ~MemoryBench() override { std::filesystem::remove_all(m_folder); }

    std::string path(const std::string& name) const { return (m_folder / name).string(); }
    std::string contentOf(const std::string& name) const {
        const auto content = textfile::read(path(name));
        return content ? *content : "(" + content.error().text + ")";
    }
    void write(const std::string& name, const std::string& content) {
        ASSERT_FALSE(textfile::write(path(name), content));
    }

    /// Opens the port and lets the communication test pass.
    void openPort() {
        link.togglePort();
        ASSERT_TRUE(link.PortOpen());
        clock.advance(1200);
        link.clearTraffic();
    }
    bool endsWithin(std::int64_t ms) {
        return clock.advanceUntil([this] { return !ends.empty(); }, ms);
    }
    std::string record(int channel) const {
        return ports.cable.radio.state.memories.at(static_cast<std::size_t>(channel)).value_or("");
    }

    fakes::VirtualClock clock;
    SimulatedPorts ports{clock};
    fakes::FakeSettings settings;
    fakes::FakeFileDialog fileDialog;
    fakes::FakeMsgBox msgBox;
    fakes::FakeShell shell;
    ToolWindows windows;
    ProgressWindow progress;
    MSComm port{ports};
    CatLink link{port, clock, msgBox, progress};
    Terminal terminal{{link, clock, settings, fileDialog, msgBox, shell, windows, "/program"}};
    MemoryManager memory{terminal, clock, settings, fileDialog, "/program"};
    std::vector<TransferEnd> ends;

private:
    std::filesystem::path m_folder;
    Connections m_connections;
};

}  // namespace korvex
