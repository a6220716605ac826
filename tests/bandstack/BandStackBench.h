#pragma once

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "bandstack/BandStackWindow.h"
#include "fakes/ProgramBench.h"

namespace korvex {

/// The band stack window without a window, in the whole program.
template <class Ports>
struct BandStackBench : fakes::ProgramBench<Ports> {
    BandStackWindow window{this->program.link, this->clock, this->program.desk};
    std::vector<Outcome::Kind> ends;
    Connections events;

    BandStackBench() {
        events += window.readEnded.connect([this](const Outcome& end) { ends.push_back(end); });
        events += window.writer().ended.connect([this](const Outcome& end) { ends.push_back(end); });
        window.Form_Load();
    }
    std::string cell(int row, int column) { return window.stack().grid.TextMatrix(row, column); }
    void setCell(int row, int column, const std::string& wire) { window.stack().show(row, column, wire); }
    ActiveOperation operation() { return this->program.link.activeOperation(); }
};

}  // namespace korvex
