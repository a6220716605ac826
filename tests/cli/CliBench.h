#pragma once

#include <functional>
#include <gtest/gtest.h>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "base/Printable.h"
#include "cli/Session.h"
#include "fakes/ProgramBench.h"
#include "fakes/TalkativePorts.h"

namespace korvex::cli {

/// korvexctl on the simulated radio, on the virtual clock.
struct CliBench {
    fakes::VirtualClock clock;
    fakes::TalkativePorts ports{clock};
    fakes::FakeSettings settings;
    NoFileDialog noFileDialog;
    std::istringstream standardInput;
    std::ostringstream standardOutput;  ///< what "-" is
    std::ostringstream out;
    std::ostringstream err;
    PrintableStream shownOut{out};
    PrintableStream shownErr{err};
    ConsoleMsgBox msgBox{shownErr};
    NoShell shell;
    fakes::FakeDatabase database;
    fakes::TemporaryFolder folder;
    std::string timeOfDay = "2026-11-22 23:42:54";
    Backup::Checksum checksum;
    std::optional<ExitCode> code;
    std::function<void(Session&)> meanwhile;
    std::string sent;  ///< by the last run, a line for each command

    /// A walk through a band leaves it two registers on; with two more it is where it was.
    void walkBandsHome() {
        for (int walk = 0; walk < 2; ++walk) EXPECT_EQ(run({"save", "bandstack", "-"}), ExitCode::Done);
    }

    ExitCode run(const std::vector<std::string>& arguments) {
        const auto command = parseArguments(arguments);
        EXPECT_TRUE(command) << command.error().text;
        Program program({clock,
                         ports,
                         settings,
                         noFileDialog,
                         msgBox,
                         shell,
                         database,
                         folder.path(),
                         [this] { return timeOfDay; },
                         {},
                         checksum});
        Session session(program, *command, {shownOut, shownErr, {}, {standardInput, standardOutput}});
        standardOutput.str("");
        code.reset();
        out.str("");
        err.str("");
        sent.clear();
        auto tap = program.link.went.connect([this](std::string_view wire) {
            const auto end = wire.find_last_not_of("\r\n");
            if (end != std::string_view::npos) sent.append(wire.substr(0, end + 1)).append("\n");
        });
        auto finished = session.finished.connect([this](ExitCode result) { code = result; });
        session.start();
        if (meanwhile) meanwhile(session);
        EXPECT_TRUE(clock.advanceUntil([this] { return code.has_value(); }, 3'000'000)) << "never finished";
        shownOut.flush();
        EXPECT_FALSE(program.link.PortOpen());
        const auto sentSoFar = ports.radio().timesSet;
        clock.advance(5'000);
        EXPECT_EQ(ports.radio().timesSet, sentSoFar) << "something was sent after the end";
        return code.value_or(ExitCode::Usage);
    }
};

}  // namespace korvex::cli
