#include "memory/MemoryListFace.h"

#include <algorithm>
#include <array>

#include "cat/FrequencyText.h"
#include "memory/FieldText.h"
#include "memory/ListText.h"
#include "memory/MemoryListWriter.h"

namespace korvex {

namespace {

constexpr int lightRed = 0xA0A0FF;  // 0xBBGGRR
constexpr int frequencyColumn = MemoryList::column(MemoryField::Frequency);

struct ReadableWidth {
    MemoryField field;
    int codes;  // twips
    int readable;
};
constexpr std::array<ReadableWidth, 6> widths = {{{MemoryField::Frequency, 1100, 1250},
                                                  {MemoryField::Mode, 500, 1500},
                                                  {MemoryField::CtcssMode, 500, 900},
                                                  {MemoryField::ToneNumber, 500, 600},
                                                  {MemoryField::Shift, 500, 800},
                                                  {MemoryField::Remark, 3000, 1500}}};

MemoryField fieldOf(int col) {
    return static_cast<MemoryField>(col - MemoryList::column(MemoryField::Channel));
}

bool isCell(int row, int col) {
    return row > 0 && col > 0;
}

void addCount(std::string& text, int count, const std::string& what) {
    if (count > 0) text += ", " + std::to_string(count) + what;
}

}  // namespace

MemoryListFace::MemoryListFace(MemoryList& list) : m_list(list) {
    m_list.grid.setFace(this);
    m_connections += m_list.rowsChanged.connect([this] {
        applyMarks();
        applyFilter();
    });
    m_connections += onlyFilled.changed.connect([this](bool) { applyFilter(); });
    m_connections += readable.changed.connect([this](bool) { applyWidths(); });
    applyMarks();
}

bool MemoryListFace::awaitsRadio(const MemoryList& list, int row) {
    return memoryListCommand(list, row) && !list.radioHas(row);
}

void MemoryListFace::applyWidths() {
    m_list.grid.setRedraw(false);
    for (const auto& width : widths) {
        m_list.grid.setColWidth(MemoryList::column(width.field), readable ? width.readable : width.codes);
    }
    m_list.grid.setRedraw(true);
}

void MemoryListFace::applyFilter() {
    std::vector<bool> hidden(MemoryList::rows + 1, false);
    bool anyFilled = false;
    for (int row = 1; row <= MemoryList::rows; ++row) {
        hidden[static_cast<std::size_t>(row)] = onlyFilled && !m_list.filled(row);
        anyFilled = anyFilled || m_list.filled(row);
    }
    if (!anyFilled) hidden.assign(hidden.size(), false);
    m_list.grid.setHiddenRows(std::move(hidden));
}

bool MemoryListFace::isOutside(int row, int col) const {
    return row > 0 && col == frequencyColumn && memoryListCommand(m_list, row) &&
           !isTunable(m_list.cell(row, MemoryField::Frequency));
}

void MemoryListFace::applyMarks() {
    int filled = 0;
    int changed = 0;
    int awaiting = 0;
    int outside = 0;
    m_list.grid.setRedraw(false);
    for (int row = 1; row <= MemoryList::rows; ++row) {
        const bool isChanged = m_list.isChanged(row);
        const bool awaits = awaitsRadio(m_list, row);
        const bool isOut = isOutside(row, frequencyColumn);
        filled += m_list.filled(row) ? 1 : 0;
        changed += isChanged ? 1 : 0;
        awaiting += awaits ? 1 : 0;
        outside += isOut ? 1 : 0;
        applyRowMark(row, isChanged, awaits);
        m_list.grid.setMark(
            row, frequencyColumn,
            isOut ? MSFlexGrid::CellMark{"!", "The radio tunes 0.030.000 to 60.000.000 Hz"} : MSFlexGrid::CellMark());
    }
    m_list.grid.setRedraw(true);
    std::string text = std::to_string(filled) + " filled";
    addCount(text, changed, " changed *");
    addCount(text, awaiting, " not yet in the radio \u2191");
    addCount(text, outside, " not tuned by the radio !");
    summary = text;
}

void MemoryListFace::applyRowMark(int row, bool changed, bool awaits) {
    MSFlexGrid::CellMark mark;
    if (changed) mark = {"*", "Changed: in no file, and not told by the radio"};
    if (awaits) {
        mark.sign += "\u2191";
        mark.meaning += std::string(changed ? "\n" : "") + "Not yet in the radio, as far as is known";
    }
    m_list.grid.setMark(row, 0, mark);
}

std::string MemoryListFace::text(int row, int col) const {
    const std::string& code = m_list.grid.TextMatrix(row, col);
    return readable && isCell(row, col) ? readableField(fieldOf(col), code) : code;
}

std::optional<int> MemoryListFace::backColour(int row, int col) const {
    return isOutside(row, col) ? std::optional(lightRed) : std::nullopt;
}

bool MemoryListFace::isEditable(int row, int col) const {
    return isCell(row, col) && fieldOf(col) != MemoryField::Channel;
}

/// "USB", or "2 USB" where codes are shown.
std::string MemoryListFace::choiceIn(const CodeList& list, int position) const {
    const std::string label(list.label(position));
    const std::string code = list.code(position);
    return readable || code == label ? label : code + " " + label;
}

std::string MemoryListFace::withoutLabel(int row, int col, const std::string& text) const {
    const auto offered = choices(row, col);
    const bool isChoice = !readable && std::find(offered.begin(), offered.end(), text) != offered.end();
    return isChoice ? text.substr(0, text.find(' ')) : text;
}

std::vector<std::string> MemoryListFace::choices(int row, int col) const {
    std::vector<std::string> choices;
    const CodeList* list = isCell(row, col) ? codesOf(fieldOf(col)) : nullptr;
    for (int position = 0; list && position < list->size(); ++position) {
        choices.push_back(choiceIn(*list, position));
    }
    return choices;
}

std::optional<std::string> MemoryListFace::whyRefused(int row, int col, const std::string& text) const {
    if (!isEditable(row, col)) return "A channel has the number of its row";
    const MemoryField field = fieldOf(col);
    if (field != MemoryField::Frequency && !m_list.filled(row)) return "The row is empty: give it a frequency first";
    const auto code = fieldFromText(field, withoutLabel(row, col, text));
    if (code) return std::nullopt;
    return std::string(fieldName(field)).append(": \"").append(text).append("\" ").append(code.error().text);
}

void MemoryListFace::put(int row, int col, const std::string& text) {
    const std::string written = withoutLabel(row, col, text);
    if (written == this->text(row, col) || whyRefused(row, col, written)) return;
    const MemoryField field = fieldOf(col);
    const MemoryList::Step step(m_list, "change of " + std::string(fieldName(field)) + ", row " + std::to_string(row));
    MemoryRow content = m_list.row(row);
    content[field] = *fieldFromText(field, written);
    complete(content, row);
    m_list.setRow(row, content);
}

}  // namespace korvex
