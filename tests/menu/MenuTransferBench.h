#pragma once

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "base/NumberText.h"
#include "fakes/ProgramBench.h"
#include "fakes/ScriptedDevice.h"

namespace korvex {

/// The test is the radio: every read command is answered with the value 1.
class MenuTransferBench : public testing::Test {
protected:
    using Bench = fakes::ProgramBench<fakes::ScriptedPorts>;

    void SetUp() override {
        line.answer = [](std::string_view wire) {
            return wire.starts_with("EX") && wire.size() == 6 ? std::string(wire.substr(0, 5)) + "1;" : std::string();
        };
        line.answerDelay = 30;
        bench.openPort();
        line.forgetWrites();
        ended = bench.program.menuSave.ended.connect([this](Outcome::Kind end) { ends.push_back(end); });
        writeEnded = bench.program.menuRestore.ended.connect([this](Outcome::Kind end) { ends.push_back(end); });
    }

    static std::string wholeFile() {
        std::string text;
        for (int item = 1; item <= 149; ++item) text += "EX" + zeroPadded(item, 3) + "1;\r\n";
        return text;
    }

    /// The file goes into the radio; what is asked about its CAT settings is answered as given.
    void restore(const std::string& content, MsgAnswer withCat = MsgAnswer::Yes) {
        fakes::writeFile(file, content);
        bench.fileDialog.choose(file);
        if (content.find("EX0281;") != std::string::npos) bench.msgBox.foresee("(menu items 029, 030, 028)", withCat);
        program.menuRestore.mnu_Restore_Click();
    }

    Bench bench;
    Program& program = bench.program;
    fakes::ScriptedLine& line = bench.ports.plug(1);
    std::string file = bench.folder.file("shack.mnu");
    std::vector<Outcome::Kind> ends;
    Connection ended;
    Connection writeEnded;
};

}  // namespace korvex
