#include "bandstack/BandStack.h"

#include <array>
#include <cstddef>

#include "bandstack/QueryLedger.h"
#include "base/CodePage.h"
#include "base/NumberText.h"

namespace korvex {

namespace {

constexpr std::array<const char*, BandStack::rows> queryCommands = {
    "",     "AC;", "BC0;", "BP00;", "CO00;", "MD0;", "MD1;", "ML0;", "NA0;", "NA1;", "FA;",  "FB;", "GT0;",
    "GT1;", "KR;", "BI;",  "NR0;",  "PA0;",  "RA0;", "RF0;", "NB0;", "NB1;", "AN0;", "AN0;", "AN0;"};

constexpr std::array<const char*, 20> earlierQueries = {"FA;",  "AC;",  "BC0;", "BP00;", "CO00;", "MD0;", "MD1;",
                                                        "ML0;", "NA0;", "NA1;", "GT0;",  "GT1;",  "KR;",  "BI;",
                                                        "NR0;", "PA0;", "RA0;", "RF0;",  "NB0;",  "NB1;"};

constexpr int registersPerBand = 3;

}  // namespace

void BandStack::initBandStackGrid() {
    if (FlexGrid1.Rows() != rows) FlexGrid1.setRows(rows);
    for (int column = 1; column < columns; ++column) {
        FlexGrid1.setTextMatrix(0, column, "BS" + zeroPadded((column - 1) / registersPerBand, 2) + ";");
    }
    for (int row = 1; row < rows; ++row) {
        FlexGrid1.setTextMatrix(row, 0, queryCommands.at(static_cast<std::size_t>(row)));
    }
}

void BandStack::setEarlierQueryLabels() {
    int row = 0;
    for (const char* query : earlierQueries) FlexGrid1.setTextMatrix(++row, 0, query);
}

std::string BandStack::wireText(int row, int column) const {
    // Every cell came in as wire text, so that there is a way back.
    return wireFromUtf8(FlexGrid1.TextMatrix(row, column)).value_or("");
}

void BandStack::setWireText(int row, int column, std::string_view wire) {
    FlexGrid1.setTextMatrix(row, column, utf8FromWire(wire));
}

bool BandStack::answersItsQuery(int row, int column) const {
    const std::string answer = wireText(row, column);
    return answer == "?;" || answersQuery(wireText(row, 0), answer);
}

}  // namespace korvex
