#include "bandstack/BandStackCells.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "bandstack/QueryLedger.h"
#include "base/NumberText.h"
#include "cat/TransmitGuard.h"

namespace korvex {

namespace {

constexpr std::array<const char*, BandStackCells::allRows> queries = {
    "",     "AC;", "BC0;", "BP00;", "CO00;", "MD0;", "MD1;", "ML0;", "NA0;", "NA1;", "FA;",  "FB;", "GT0;",
    "GT1;", "KR;", "BI;",  "NR0;",  "PA0;",  "RA0;", "RF0;", "NB0;", "NB1;", "AN0;", "AN0;", "AN0;"};

constexpr std::array<const char*, 20> earlierQueries = {"FA;",  "AC;",  "BC0;", "BP00;", "CO00;", "MD0;", "MD1;",
                                                        "ML0;", "NA0;", "NA1;", "GT0;",  "GT1;",  "KR;",  "BI;",
                                                        "NR0;", "PA0;", "RA0;", "RF0;",  "NB0;",  "NB1;"};

enum class Filling { Empty, Part, Whole };

Filling fillingOf(const BandStackCells& cells, int column) {
    constexpr int inEveryFile = static_cast<int>(earlierQueries.size());
    int filled = 0;
    for (int row = 1; row <= inEveryFile; ++row) filled += cells.at(row, column).empty() ? 0 : 1;
    if (filled == 0) return Filling::Empty;
    return filled == inEveryFile ? Filling::Whole : Filling::Part;
}

/// "00.1, 05.2 to 10.3"
std::string namesOf(const std::vector<int>& columns) {
    std::string text;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        std::size_t last = i;
        while (last + 1 < columns.size() && columns[last + 1] == columns[last] + 1) ++last;
        if (!text.empty()) text += ", ";
        text += registerName(columns[i]);
        if (last > i) text += " to " + registerName(columns[last]);
        i = last;
    }
    return text;
}

std::string sentenceOf(const std::vector<int>& columns, const std::string& count, const std::string& what) {
    if (columns.empty()) return {};
    return std::to_string(columns.size()) + count + (columns.size() == 1 ? " is " : " are ") + what + ": " +
           namesOf(columns) + ".";
}

std::size_t placeOf(int row, int column) {
    return static_cast<std::size_t>(row) * BandStackCells::columns + static_cast<std::size_t>(column);
}

}  // namespace

BandStackCells::BandStackCells(int rows) : m_cells(static_cast<std::size_t>(rows) * columns) {
    for (int column = 1; column < columns; ++column) set(0, column, bandSelectCommand(column));
    for (int row = 1; row < std::min(rows, allRows); ++row) set(row, 0, queries.at(static_cast<std::size_t>(row)));
}

const std::string& BandStackCells::at(int row, int column) const {
    static const std::string nothing;
    if (row < 0 || row >= rows() || column < 0 || column >= columns) return nothing;
    return m_cells[placeOf(row, column)];
}

void BandStackCells::set(int row, int column, std::string_view text) {
    if (row < 0 || row >= rows() || column < 0 || column >= columns) return;
    m_cells[placeOf(row, column)] = text;
}

void BandStackCells::setEarlierQueries() {
    int row = 0;
    for (const char* query : earlierQueries) set(++row, 0, query);
}

void BandStackCells::clearAntennaRows() {
    for (int column = 1; column < columns; ++column) {
        set(antennaAnswer, column, "");
        set(antennaCommand, column, "");
    }
}

bool BandStackCells::answersItsQuery(int row, int column) const {
    const std::string& answer = at(row, column);
    return answer == "?;" || answersQuery(query(row), answer);
}

std::string registerName(int column) {
    return zeroPadded((column - 1) / BandStackCells::perBand, 2) + "." +
           std::to_string((column - 1) % BandStackCells::perBand + 1);
}

std::string cellName(const BandStackCells& cells, int row, int column) {
    const std::string query = row == 0 ? "BS" : cells.query(row);
    return registerName(column) + " " + query.substr(0, query.find(';'));
}

std::string bandSelectCommand(int column) {
    return "BS" + zeroPadded((column - 1) / BandStackCells::perBand, 2) + ";";
}

std::string settableAnswer(int row, const std::string& answer) {
    constexpr std::size_t digit = 3;
    const auto above = [&](char highest) {
        return answer.size() > digit && isDigit(answer[digit]) && answer[digit] > highest;
    };
    switch (row) {
        case 12: return above('4') ? "GT04;" : answer;
        case 13: return above('4') ? "GT14;" : answer;
        case 19: return above('3') ? "RF00;" : answer;
        default: return answer;
    }
}

std::string bandStackCommand(const std::string& cell) {
    if (cell.starts_with("AN05")) return {};  // no answer: it would toggle the receive antenna
    if (cell.starts_with("AN0")) return cell.substr(0, 4) + ";";
    if (!keysTransmitter(cell)) return cell;
    constexpr std::string_view tuning = "AC002;";
    std::string settable = cell;
    if (cell.starts_with("AC") && cell.size() == tuning.size() && cell[4] == '2') settable[4] = '1';
    return keysTransmitter(settable) ? std::string() : settable;
}

std::string missingRegisters(const BandStackCells& cells) {
    std::vector<int> empty;
    std::vector<int> part;
    for (int column = 1; column < BandStackCells::columns; ++column) {
        const Filling filling = fillingOf(cells, column);
        if (filling == Filling::Empty) empty.push_back(column);
        if (filling == Filling::Part) part.push_back(column);
    }
    const std::string ofAll = " of " + std::to_string(BandStackCells::registers) + " registers";
    const std::string first = sentenceOf(empty, ofAll, "empty");
    const std::string second = sentenceOf(part, first.empty() ? ofAll : "", "incomplete");
    return first + (first.empty() || second.empty() ? "" : " ") + second;
}

}  // namespace korvex
