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

std::string fileName(const std::string& path) {
    return path.substr(path.find_last_of('/') + 1);
}

}  // namespace

BandStackComparison::BandStackComparison(BandStack& stack, CatLink& link, Clock& clock, OwnersFiles& files)
    : m_stack(stack), m_files(files), m_reader(link, clock) {
    m_stack.grid.setFace(this);
    m_connections += m_stack.grid.allChanged.connect([this] { tellResult(); });
    m_connections += m_reader.ended.connect([this](const Outcome& outcome) { onRead(outcome); });
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
    m_other = Other{*cells, fileName(*end.file)};
    show();
}

void BandStackComparison::onRead(const Outcome& outcome) {
    if (!outcome.isDone()) {
        result = inWords(outcome, {"register", "registers"});
        return;
    }
    m_other = Other{m_reader.cells(), "the radio"};
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
    for (int other = 1; other <= BandStackCells::lastQueried; ++other) {
        if (m_other->cells.query(other) != m_stack.grid.TextMatrix(row, 0)) continue;
        return utf8FromWire(m_other->cells.at(other, column));
    }
    return std::nullopt;
}

bool BandStackComparison::differs(int row, int column) const {
    const auto other = otherAnswer(row, column);
    return other && *other != m_stack.grid.TextMatrix(row, column);
}

std::string BandStackComparison::text(int row, int column) const {
    const std::string& cell = m_stack.grid.TextMatrix(row, column);
    if (row == 0) return column == 0 ? cell : registerInWords(column) + "\n" + cell;
    if (column == 0) return cell + "  " + std::string(settingInWords(cell, row));
    return (differs(row, column) ? "\u2260 " : "") + readableAnswer(cell);
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
