#include "memory/MemoryListEdits.h"

#include <algorithm>
#include <utility>

#include "base/AsciiText.h"
#include "base/NumberText.h"
#include "memory/FieldText.h"
#include "memory/ListText.h"

namespace korvex {

namespace {

constexpr int yellow = 65535;
constexpr std::size_t mostTold = 10;

std::string rowsInWords(std::size_t count) {
    return std::to_string(count) + (count == 1 ? " row" : " rows");
}

/// The first of them, and how many more.
std::string listed(const std::vector<std::string>& refused) {
    std::string text;
    for (std::size_t i = 0; i < std::min(refused.size(), mostTold); ++i) text += refused[i] + "\r\n";
    if (refused.size() > mostTold) text += "and " + std::to_string(refused.size() - mostTold) + " more\r\n";
    return text;
}

MemoryField fieldAt(int col) {
    return static_cast<MemoryField>(std::max(col, 1) - MemoryList::column(MemoryField::Channel));
}

}  // namespace

MemoryListEdits::MemoryListEdits(MemoryList& list, MemoryListFace& face, MsgBox& msgBox)
    : m_list(list), m_face(face), m_msgBox(msgBox), m_rowsChanged(list.rowsChanged.connect([this] { told = ""; })) {}

void MemoryListEdits::inOneStep(const std::string& what, const std::function<void()>& change) {
    const MemoryList::Step step(m_list, what);
    change();
}

void MemoryListEdits::clearRows(const std::vector<int>& rows) {
    inOneStep("deletion of " + rowsInWords(rows.size()), [&] {
        for (const int row : rows) m_list.clearRow(row);
    });
    told = "Content of " + rowsInWords(rows.size()) + " deleted";
}

void MemoryListEdits::insertRow(int row) {
    const bool lost = m_list.filled(MemoryList::rows);
    m_list.insertRow(row);
    told = lost ? "Row inserted; what was in row 99 is gone" : "Row inserted";
}

void MemoryListEdits::deleteRows(const std::vector<int>& rows) {
    inOneStep("removal of " + rowsInWords(rows.size()), [&] {
        int removed = 0;  // what was below has come up
        for (const int row : rows) m_list.deleteRow(row - removed++);
    });
    told = rowsInWords(rows.size()) + " removed";
}

void MemoryListEdits::copyRows(const std::vector<int>& rows, bool withHeadings) {
    m_copied.clear();
    for (const int row : rows) m_copied.push_back(m_list.row(row));
    m_copiedText = rowsAsText(m_copied, m_face.readable, withHeadings);
    textCopied.emit(m_copiedText);
    told = rowsInWords(rows.size()) + " copied";
}

void MemoryListEdits::markYellow(const std::vector<int>& rows) {
    m_list.grid.setRedraw(false);
    for (const int row : rows) {
        for (int col = 1; col < m_list.grid.Cols(); ++col) m_list.grid.setCellBackColor(row, col, yellow);
    }
    m_list.grid.setRedraw(true);
}

bool MemoryListEdits::isForCurrentCell(const std::string& text) const {
    const int col = std::max(m_list.grid.Col(), MemoryList::column(MemoryField::Frequency));
    return !text.empty() && !m_face.whyRefused(m_list.grid.Row(), col, text);
}

void MemoryListEdits::paste(const std::vector<int>& rows, const std::string& clipboard) {
    const bool isOurs = clipboard.empty() || clipboard == m_copiedText;
    if (!isOurs && (isTable(clipboard) || isForCurrentCell(clipboard))) return pasteText(clipboard);
    if (!m_copied.empty()) return pasteCopied(rows);
    if (!clipboard.empty()) return pasteText(clipboard);
    told = "Nothing has been copied";
}

void MemoryListEdits::pasteCopied(const std::vector<int>& rows) {
    std::map<int, MemoryRow> pasted;
    const auto take = [&](int row, MemoryRow content) {
        content[MemoryField::Channel] = channelText(row);
        pasted[row] = std::move(content);
    };
    if (m_copied.size() == 1) {
        for (const int row : rows) take(row, m_copied.front());
        return place(pasted);
    }
    int row = rows.empty() ? m_list.grid.Row() : rows.front();
    if (row + static_cast<int>(m_copied.size()) - 1 > MemoryList::rows) {
        told = rowsInWords(m_copied.size()) + " were copied: from row " + std::to_string(row) + " on there is no room";
        return;
    }
    for (const auto& copied : m_copied) take(row++, copied);
    place(pasted);
}

void MemoryListEdits::pasteText(const std::string& text) {
    const int row = m_list.grid.Row();
    const MemoryField field = fieldAt(m_list.grid.Col());
    const auto pasted = rowsFromText(m_list, text, row, field);
    if (!pasted.refused.empty()) {
        const std::string what = std::to_string(pasted.refused.size()) + " of the pasted cells cannot be taken:\r\n" +
                                 listed(pasted.refused);
        told = "Not pasted: " + pasted.refused.front();
        if (pasted.rows.empty()) return m_msgBox.exclamation(what + "Nothing is pasted.");
        if (!m_msgBox.confirm(what + "Paste the other " + rowsInWords(pasted.rows.size()) + "?")) return;
    }
    place(rowsFromText(m_list, text, row, field).rows);  // while the box was open a reading may have gone on
}

/// Yellow stays where it is.
void MemoryListEdits::place(const std::map<int, MemoryRow>& rows) {
    inOneStep("pasting of " + rowsInWords(rows.size()), [&] {
        for (const auto& [row, content] : rows) {
            MemoryRow pasted = content;
            pasted.marked = m_list.row(row).marked;
            m_list.setRow(row, pasted);
        }
    });
    told = rowsInWords(rows.size()) + " pasted";
}

void MemoryListEdits::moveRows(const std::vector<int>& rows, bool up) {
    const bool room = !rows.empty() && (up ? rows.front() > 1 : rows.back() < MemoryList::rows);
    if (!room) return;
    const int by = up ? -1 : 1;
    inOneStep("moving of " + rowsInWords(rows.size()), [&] {
        std::vector<int> inOrder = rows;
        if (!up) std::reverse(inOrder.begin(), inOrder.end());
        for (const int row : inOrder) {
            const MemoryRow moved = m_list.row(row);
            m_list.setRow(row, m_list.row(row + by));
            m_list.setRow(row + by, moved);
        }
        m_list.renumberFilledRows();
    });
    m_list.grid.setCurrent(m_list.grid.Row() + by, m_list.grid.Col());
    std::vector<int> moved = rows;
    for (int& row : moved) row += by;
    rowsMoved.emit(moved);
    told = rowsInWords(rows.size()) + " moved " + (up ? "up" : "down");
}

void MemoryListEdits::undo() {
    const auto what = m_list.undo();
    told = what ? "Undone: " + *what : "Nothing to undo";
}

void MemoryListEdits::redo() {
    const auto what = m_list.redo();
    told = what ? "Done again: " + *what : "Nothing to do again";
}

int MemoryListEdits::columnWith(int row, const std::string& text) const {
    for (int col = 1; col < m_list.grid.Cols(); ++col) {
        const std::string& code = m_list.grid.TextMatrix(row, col);
        for (const auto& form : {code, readableField(fieldAt(col), code)}) {
            if (inLowerCase(form).find(text) != std::string::npos) return col;
        }
    }
    return 0;
}

bool MemoryListEdits::find(const std::string& text, bool forward) {
    if (text.empty()) return false;
    const std::string wanted = inLowerCase(text);
    int row = m_list.grid.Row();
    for (int looked = 0; looked < MemoryList::rows; ++looked) {
        row += forward ? 1 : -1;
        if (row > MemoryList::rows) row = 1;
        if (row < 1) row = MemoryList::rows;
        const int col = m_list.grid.isRowHidden(row) ? 0 : columnWith(row, wanted);
        if (col == 0) continue;
        m_list.grid.setCurrent(row, col);
        told = "Found in row " + std::to_string(row);
        return true;
    }
    told = "\"" + text + "\" is in no row";
    return false;
}

void MemoryListEdits::List1_Click(int entry, const std::vector<int>& rows, const std::string& clipboard) {
    switch (entry) {
        case 0: return clearRows(rows);
        case 1: return insertRow(m_list.grid.Row());
        case 2: return deleteRows(rows);
        case 3: markYellow(rows); return copyRows(rows);
        case 4: return paste(rows, clipboard);
        default: return;
    }
}

void MemoryListEdits::FlexGrid1_KeyDown(char key, const std::vector<int>& rows, const std::string& clipboard) {
    const char letter = asciiUpper(key);
    if (letter == 'C') copyRows(rows);
    if (letter == 'V') paste(rows, clipboard);
}

}  // namespace korvex
