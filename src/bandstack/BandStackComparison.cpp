#include "bandstack/BandStackComparison.h"

#include "bandstack/BandStackFile.h"
#include "bandstack/BandStackParts.h"
#include "base/CodePage.h"

namespace korvex {

namespace {

constexpr int orange = 0x80C8FF;  // 0xBBGGRR

bool isAnswerCell(int row, int column) {
    return row >= 1 && row <= BandStackCells::lastQueried && column >= 1;
}

std::string countOf(int count, const std::string& one) {
    return std::to_string(count) + " " + one + (count == 1 ? "" : "s");
}

int rowWithQuery(const BandStackCells& cells, const std::string& query) {
    for (int row = 1; row <= BandStackCells::lastQueried; ++row) {
        if (cells.query(row) == query) return row;
    }
    return 0;
}

int differences(const BandStackCells& cells, int column, const BandStackCells& other, int otherColumn) {
    int count = 0;
    for (int row = 1; row <= BandStackCells::lastQueried; ++row) {
        const int otherRow = rowWithQuery(other, cells.query(row));
        if (otherRow > 0 && cells.at(row, column) != other.at(otherRow, otherColumn)) ++count;
    }
    return count;
}

/// The column of `other` that stands beside `column` when the band's registers are taken `step` later.
int steppedColumn(int column, int step) {
    const int first = firstOfBand(column);
    return first + (column - first + step) % BandStackCells::perBand;
}

/// Reading begins in each band with the register that was used last, so that the same three may stand in another order.
/// `other` with each band in the order in which it differs least.
BandStackCells aligned(const BandStackCells& cells, const BandStackCells& other) {
    BandStackCells result = other;
    for (int first = 1; first < BandStackCells::columns; first += BandStackCells::perBand) {
        const auto differing = [&](int step) {
            int count = 0;
            for (int column = first; column < first + BandStackCells::perBand; ++column) {
                count += differences(cells, column, other, steppedColumn(column, step));
            }
            return count;
        };
        int best = 0;
        for (int step = 1; step < BandStackCells::perBand; ++step)
            best = differing(step) < differing(best) ? step : best;
        for (int column = first; column < first + BandStackCells::perBand; ++column) {
            for (int row = 1; row < other.rows(); ++row) {
                result.set(row, column, other.at(row, steppedColumn(column, best)));
            }
        }
    }
    return result;
}

std::string fileName(const std::string& path) {
    return path.substr(path.find_last_of('/') + 1);
}

}  // namespace

BandStackComparison::BandStackComparison(BandStack& stack, CatLink& link, Clock& clock, OwnersFiles& files,
                                         BandStackWriter& writer)
    : m_stack(stack), m_files(files), m_reader(link, clock), m_walk(link, m_reader, writer) {
    m_stack.grid.setFace(this);
    m_connections += m_stack.grid.allChanged.connect([this] { tellResult(); });
    m_connections += m_walk.ended.connect([this](const Outcome& outcome) { onRead(outcome); });
}

void BandStackComparison::markRegister() {
    m_other.reset();
    m_marked = m_stack.grid.Col();
    m_with = 0;
    show();
    result = registerInWords(m_marked) + " is marked for a comparison";
}

void BandStackComparison::compareRegisters() {
    if (m_marked == 0) {
        result = "Mark the register first that this one is to be compared with";
        return;
    }
    m_other.reset();
    m_with = m_stack.grid.Col();
    show();
}

void BandStackComparison::compareFile() {
    std::optional<BandStackCells> cells;
    const FileEnd end = m_files.read({"Compare with File", "bsr"}, [&](const std::string& content) -> Failure {
        auto parsed = parseBandStackText(content);
        if (!parsed) return parsed.error();
        cells = std::move(*parsed);
        return {};
    });
    if (end.failure) return m_files.tell(*end.failure);
    if (!cells) return;
    m_other = Other{*cells, fileName(*end.file), ""};
    show();
}

void BandStackComparison::onRead(const Outcome& outcome) {
    const std::string& why = m_walk.whyNotHome();
    const std::string note = why.empty() ? "" : ". " + why;
    if (!outcome.isDone()) {
        result = inWords(outcome, {"register", "registers"}) + note;
        return;
    }
    m_other = Other{m_reader.cells(), "the radio", note};
    show();
}

void BandStackComparison::end() {
    m_other.reset();
    m_marked = m_with = 0;
    show();
}

/// The view is told that every cell may look different.
void BandStackComparison::show() {
    m_stack.grid.setFace(this);
}

void BandStackComparison::tellResult() {
    if (!m_other && m_with == 0) {
        result = "";
        return;
    }
    if (m_other) m_other->cells = aligned(m_stack.cells(), m_other->cells);
    int settings = 0;
    int registers = 0;
    for (int column = 1; column < BandStackCells::columns; ++column) {
        int inRegister = 0;
        for (int row = 1; row <= BandStackCells::lastQueried; ++row) inRegister += differs(row, column) ? 1 : 0;
        settings += inRegister;
        registers += inRegister > 0 ? 1 : 0;
    }
    if (m_other) {
        result = settings == 0 ? "No setting differs from " + m_other->name
                               : countOf(settings, "setting") + " in " + countOf(registers, "register") +
                                     (settings == 1 ? " differs from " : " differ from ") + m_other->name;
        result = result.get() + m_other->note;
    } else {
        result = countOf(settings / 2, "setting") + (settings == 2 ? " differs: " : " differ: ") +
                 registerInWords(m_marked) + " and " + registerInWords(m_with);
    }
}

/// What is compared with a cell; nothing where there is nothing. Files of the earlier layout have other rows.
std::optional<std::string> BandStackComparison::otherAnswer(int row, int column) const {
    if (!isAnswerCell(row, column)) return std::nullopt;
    if (!m_other) {
        if (m_with == 0 || (column != m_marked && column != m_with)) return std::nullopt;
        return m_stack.grid.TextMatrix(row, column == m_marked ? m_with : m_marked);
    }
    const int other = rowWithQuery(m_other->cells, m_stack.grid.TextMatrix(row, 0));
    return other > 0 ? std::optional(utf8FromWire(m_other->cells.at(other, column))) : std::nullopt;
}

bool BandStackComparison::differs(int row, int column) const {
    const auto other = otherAnswer(row, column);
    return other && *other != m_stack.grid.TextMatrix(row, column);
}

std::string BandStackComparison::text(int row, int column) const {
    const std::string& cell = m_stack.grid.TextMatrix(row, column);
    if (row == 0) return column == 0 ? cell : registerInWords(column) + "\n" + cell;
    if (column == 0) return cell + "  " + std::string(settingInWords(cell, row));
    return (differs(row, column) ? "\u2260" : "") + readableAnswer(cell);
}

std::string BandStackComparison::description(int row, int column) const {
    if (row == 0 || column == 0) return {};
    const std::string& cell = m_stack.grid.TextMatrix(row, column);
    const auto other = otherAnswer(row, column);
    if (!other || *other == cell) return cell;
    const std::string where = m_other ? m_other->name : registerInWords(column == m_marked ? m_with : m_marked);
    return cell + "\n" + where + ": " + (other->empty() ? "nothing" : *other);
}

std::optional<int> BandStackComparison::backColour(int row, int column) const {
    return differs(row, column) ? std::optional(orange) : std::nullopt;
}

bool BandStackComparison::beginsGroup(int column) const {
    return column > 1 && (column - 1) % BandStackCells::perBand == 0;
}

}  // namespace korvex
