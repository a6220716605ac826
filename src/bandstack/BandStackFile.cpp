#include "bandstack/BandStackFile.h"

#include <algorithm>

#include "base/CodePage.h"
#include "base/Lines.h"
#include "base/NumberText.h"
#include "cat/TransmitGuard.h"

namespace korvex {

namespace {

constexpr int fewestRows = 2;     // the labels and one row of cells
constexpr int mostRows = 10'000;  // as many as a grid of this width can have

std::string linesOf(std::string_view content) {
    std::string text;
    FieldReader reader(content);
    while (const auto line = reader.next()) {
        text += *line;
        text += crLf;
    }
    return text;
}

std::optional<int> rowCount(std::string_view inFront) {
    const auto count = parseWhole(inFront);
    return count && *count >= fewestRows && *count <= mostRows ? count : std::nullopt;
}

void emptyCells(MSFlexGrid& grid) {
    for (int row = 0; row < grid.Rows(); ++row) {
        for (int column = 1; column < grid.Cols(); ++column) grid.setTextMatrix(row, column, "");
    }
}

}  // namespace

std::string bandStackFileText(const BandStack& stack) {
    std::string text;
    for (int row = 0; row < stack.FlexGrid1.Rows(); ++row) {
        for (int column = 0; column < stack.FlexGrid1.Cols(); ++column) text += '|' + stack.wireText(row, column);
        text += '|';
        text += crLf;
    }
    text += '|';
    text += crLf;
    text += crLf;
    return text;
}

/// A radio that was read while its tuner was tuning has answered this; writing makes it harmless (BandStackWriter).
constexpr std::string_view tunerIsTuning = "AC002;";

Failure parseBandStackText(std::string_view content, BandStackFields& parsed) {
    parsed.text = linesOf(content);
    const std::string_view text = parsed.text;
    auto bar = text.find('|');
    parsed.rows = rowCount(text.substr(0, bar));
    while (bar != std::string_view::npos) {
        const auto next = text.find('|', bar + 1);
        if (next == std::string_view::npos) break;
        parsed.fields.push_back(text.substr(bar + 1, next - bar - 1));
        bar = next;
    }
    if (parsed.fields.empty()) {
        return RuntimeError{errors::TypeMismatch, "The file holds no band stack registers."};
    }
    parsed.lacksQueryColumn = !parsed.fields.front().empty();
    const auto isForbidden = [](std::string_view field) { return keysTransmitter(field) && field != tunerIsTuning; };
    if (std::any_of(parsed.fields.begin(), parsed.fields.end(), isForbidden)) {
        return RuntimeError{errors::TypeMismatch, "The file holds a command that would key the transmitter."};
    }
    return {};
}

void fillGrid(BandStack& stack, const BandStackFields& parsed) {
    auto& grid = stack.FlexGrid1;
    grid.setRedraw(false);
    emptyCells(grid);
    // A spare column takes the line ends, which stand between two bars as any cell does.
    grid.setCols(grid.Cols() + 1);
    grid.setRows(parsed.rows.value_or(BandStack::rows));
    if (parsed.lacksQueryColumn) stack.setEarlierQueryLabels();
    auto field = parsed.fields.begin();
    for (int row = 0; row < grid.Rows(); ++row) {
        for (int column = parsed.lacksQueryColumn ? 1 : 0; column < grid.Cols() && field != parsed.fields.end();
             ++column) {
            stack.setWireText(row, column, *field++);
        }
    }
    grid.setCols(grid.Cols() - 1);
    grid.setRedraw(true);
}

}  // namespace korvex
