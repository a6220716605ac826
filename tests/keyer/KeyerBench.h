#pragma once

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "fakes/ProgramBench.h"
#include "keyer/KeyerWindow.h"

namespace korvex {

/// The keyer window without a window, in the whole program.
template <class Ports>
struct KeyerBench : fakes::ProgramBench<Ports> {
    KeyerWindow window{this->program.link, this->program.desk};
    std::vector<Outcome::Kind> ends;
    Connections events;

    KeyerBench() {
        events += window.reader().ended.connect([this](Outcome::Kind end) { ends.push_back(end); });
        events += window.writer().ended.connect([this](Outcome::Kind end) { ends.push_back(end); });
    }
    MSFlexGrid& grid() { return window.table().MSFlexGrid_k1; }
    std::string text(int row) { return grid().TextMatrix(row, KeyerTable::textColumn); }
    std::string count(int row) { return grid().TextMatrix(row, KeyerTable::countColumn); }
    void setText(int row, const std::string& utf8) { grid().setTextMatrix(row, KeyerTable::textColumn, utf8); }
    ActiveOperation operation() { return this->program.link.activeOperation(); }
};

}  // namespace korvex
