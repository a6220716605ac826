#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace korvex {

/// The band stack registers as plain values, wire text in 25 rows of 34 cells.
///
/// Row 0 holds each register's band-select command: three columns a band, eleven bands. Column 0 holds the query of
/// each row. Between them stand the radio's answers as they came, with their ";". Rows 1 to 22 are read; row 23 takes
/// the antenna that the radio is on while a register is written, row 24 what was sent to set it right.
class BandStackCells {
public:
    static constexpr int allRows = 25;
    static constexpr int columns = 34;
    static constexpr int registers = columns - 1;
    static constexpr int perBand = 3;
    static constexpr int lastQueried = 22;
    static constexpr int antennaAnswer = 23;
    static constexpr int antennaCommand = 24;

    /// Labelled, without an answer. A file may have fewer rows.
    explicit BandStackCells(int rows = allRows);

    int rows() const { return static_cast<int>(m_cells.size()) / columns; }
    /// Empty outside.
    const std::string& at(int row, int column) const;
    /// Nothing happens outside.
    void set(int row, int column, std::string_view text);

    /// Column 0 as files from before that column was stored have it in mind.
    void setEarlierQueries();
    /// The answers to the antenna question and what was done about them are of one writing.
    void clearAntennaRows();

    const std::string& query(int row) const { return at(row, 0); }
    /// Whether an answer, or a refusal, to the query of its row stands in a cell.
    bool answersItsQuery(int row, int column) const;

    bool operator==(const BandStackCells&) const = default;

private:
    std::vector<std::string> m_cells;
};

/// Which register a column holds: "05.2" is the second of band 05.
std::string registerName(int column);
/// "05.2 MD0": the setting in a cell; "05.2 BS" for the band-select command in row 0.
std::string cellName(const BandStackCells& cells, int row, int column);
/// "BS05;", which steps to the register of a column.
std::string bandSelectCommand(int column);

/// An answer to a row's query as the radio takes it back: in automatic it tells what it has chosen by itself.
std::string settableAnswer(int row, const std::string& answer);

/// What a cell is written to the radio as. The antenna is told with more digits than it is set with. And what was read
/// while the tuner tuned, or what a pressed key told unasked and took a row, must not key the transmitter now: the
/// tuner is switched on instead of started, the rest is left out.
std::string bandStackCommand(const std::string& cell);

/// "16 of 33 registers are empty: 05.2 to 10.3. 1 is incomplete: 05.1."; empty where nothing is missing. What only
/// newer files have is not missed.
std::string missingRegisters(const BandStackCells& cells);

}  // namespace korvex
