#pragma once

#include <vector>

#include "fakes/ProgramBench.h"
#include "memory/MemoryManager.h"
#include "radio/SimulatedPorts.h"

namespace korvex {

/// The memory tools with a simulated radio at port 1, a clock that the test moves, and a folder for files.
class MemoryBench : public testing::Test, protected fakes::ProgramBench<SimulatedPorts> {
protected:
    MemoryBench() {
        for (auto* ended :
             {&memory.saver.ended, &memory.listReader.ended, &memory.restorer.ended, &memory.listWriter.ended}) {
            m_connections += ended->connect([this](Outcome::Kind end) { ends.push_back(end); });
        }
    }

    std::string path(const std::string& name) const { return folder.file(name); }
    std::string contentOf(const std::string& name) const { return fakes::fileContent(path(name)); }
    void write(const std::string& name, const std::string& content) const { fakes::writeFile(path(name), content); }

    void openPort() {
        ProgramBench::openPort();
        link.clearTraffic();
    }
    bool endsWithin(std::int64_t ms) {
        return clock.advanceUntil([this] { return !ends.empty(); }, ms);
    }
    std::string record(int channel) const {
        return ports.cable.radio.state.memories.at(static_cast<std::size_t>(channel)).value_or("");
    }

    CatLink& link = program.link;
    ProgressWindow& progress = program.progress;
    MemoryManager& memory = program.memory;
    std::vector<Outcome::Kind> ends;

private:
    Connections m_connections;
};

}  // namespace korvex
