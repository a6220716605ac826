#include "bandstack/BandStackFile.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "bandstack/QueryLedger.h"
#include "base/CodePage.h"
#include "base/Lines.h"
#include "base/NumberText.h"

namespace korvex {

namespace {

constexpr char bar = '|';
constexpr int fewestRows = 2;              // the labels and one row of cells
constexpr std::size_t longestAnswer = 64;  // the longest of the radio's has 54 characters
constexpr std::size_t longestQuotation = 20;

RuntimeError refused(int row, const std::string& why) {
    return {errors::TypeMismatch, "Row " + std::to_string(row) + why};
}

RuntimeError refused(int row, int column, std::string_view cell, const std::string& why) {
    const bool cut = cell.size() > longestQuotation;
    const std::string quoted = utf8FromWire(cell.substr(0, longestQuotation)) + (cut ? "..." : "");
    return refused(row, ", column " + std::to_string(column) + ": \"" + quoted + "\" " + why);
}

/// The next line without its end (CR LF, LF or CR); nothing when the content is used up.
std::optional<std::string_view> takeLine(std::string_view& rest) {
    if (rest.empty()) return std::nullopt;
    const auto end = std::min(rest.find_first_of(crLf), rest.size());
    const auto line = rest.substr(0, end);
    rest.remove_prefix(end);
    rest.remove_prefix(rest.starts_with(crLf) ? 2 : std::min<std::size_t>(rest.size(), 1));
    return line;
}

/// What stands in front of the first bar of all: a row count that the grid can have, or nothing of use.
int takeRowCount(std::string_view& content) {
    const auto begin = std::min(content.find(bar), content.size());
    const auto count = parseWhole(content.substr(0, begin));
    if (count) content.remove_prefix(begin);
    return count && *count >= fewestRows ? std::min(*count, BandStackCells::allRows) : BandStackCells::allRows;
}

bool isPrintable(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c <= '~'; });
}

bool isAnswer(std::string_view query, std::string_view cell) {
    return answersQuery(query, cell) && cell.size() <= longestAnswer && cell.find(';') == cell.size() - 1 &&
           isPrintable(cell);
}

/// Takes the cells of one file after the other row into `cells`.
class Rows {
public:
    explicit Rows(int rows) : m_cells(rows) {}

    /// One line; nothing when it was taken.
    Failure take(std::string_view line) {
        if (m_row == m_cells.rows()) return refused(m_row, ": the band stack has no such row");
        if (!line.starts_with(bar)) return refused(m_row, " does not begin with \"|\"");
        line.remove_prefix(1);
        if (m_row == 0) beginLayout(line);
        for (int column = m_firstColumn; !line.empty(); ++column) {
            const auto end = line.find(bar);
            if (end == std::string_view::npos) return refused(m_row, " is cut off: it does not end with \"|\"");
            if (auto failure = takeCell(column, line.substr(0, end))) return failure;
            line.remove_prefix(end + 1);
        }
        ++m_row;
        return {};
    }
    bool empty() const { return m_row == 0; }
    BandStackCells& cells() { return m_cells; }

private:
    /// The first cell of all is empty where the queries are stored.
    void beginLayout(std::string_view firstLine) {
        for (int column = 1; column < BandStackCells::columns; ++column) m_cells.set(0, column, "");
        if (firstLine.empty() || firstLine.starts_with(bar)) return;
        m_firstColumn = 1;
        m_cells.setEarlierQueries();
    }

    Failure takeCell(int column, std::string_view cell) {
        if (column >= BandStackCells::columns) return refused(m_row, " has too many cells");
        // Loaded from the earlier layout and saved since.
        if (m_row == 1 && column == 0 && cell == "FA;") m_cells.setEarlierQueries();
        if (column == 0 && cell != m_cells.query(m_row)) {
            return refused(m_row, column, cell, "is not the query \"" + m_cells.query(m_row) + "\"");
        }
        if (column == 0 || cell.empty()) return {};
        if (m_row == 0 && cell != bandSelectCommand(column)) {
            return refused(m_row, column, cell, "is not \"" + bandSelectCommand(column) + "\"");
        }
        if (m_row > 0 && cell != "?;") {
            if (!isAnswer(m_cells.query(m_row), cell)) {
                return refused(m_row, column, cell, "does not answer \"" + m_cells.query(m_row) + "\"");
            }
            // What was read while the tuner was tuning is written so that it is harmless.
            if (m_row <= BandStackCells::lastQueried && bandStackCommand(std::string(cell)).empty()) {
                return refused(m_row, column, cell, "is nothing that can be written");
            }
        }
        m_cells.set(m_row, column, cell);
        return {};
    }

    BandStackCells m_cells;
    int m_row = 0;
    int m_firstColumn = 0;
};

}  // namespace

std::string bandStackFileText(const BandStackCells& cells) {
    std::string text;
    for (int row = 0; row < cells.rows(); ++row) {
        for (int column = 0; column < BandStackCells::columns; ++column) text += bar + cells.at(row, column);
        text += bar;
        text += crLf;
    }
    text += bar;
    text += crLf;
    text += crLf;
    return text;
}

Result<BandStackCells> parseBandStackText(std::string_view content) {
    Rows rows(takeRowCount(content));
    while (const auto line = takeLine(content)) {
        if (line == "|") break;  // the end of the table
        if (line->empty() && content.find_first_not_of(crLf) == std::string_view::npos) break;
        if (auto failure = rows.take(*line)) return *failure;
    }
    if (rows.empty()) return RuntimeError{errors::TypeMismatch, "The file holds no band stack registers."};
    return rows.cells();
}

}  // namespace korvex
