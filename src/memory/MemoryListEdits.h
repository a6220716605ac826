#pragma once

#include <functional>
#include <string>
#include <vector>

#include "base/Property.h"
#include "memory/MemoryListFace.h"
#include "platform/MsgBox.h"

namespace korvex {

/// What a person does with the rows of the memory list, one or several at once. `rows` are the chosen ones, ascending;
/// every call is one step of its history. What was done, or why not, is told.
class MemoryListEdits {
public:
    MemoryListEdits(MemoryList& list, MemoryListFace& face, MsgBox& msgBox);

    Property<std::string> told;                 ///< UTF-8, one line; until the rows change otherwise
    Signal<const std::string&> textCopied;      ///< for the clipboard: UTF-8 with tabs
    Signal<const std::vector<int>&> rowsMoved;  ///< the chosen rows are these now

    void clearRows(const std::vector<int>& rows);
    void insertRow(int row);
    void deleteRows(const std::vector<int>& rows);
    /// Into the buffer and, as text, to the clipboard.
    void copyRows(const std::vector<int>& rows, bool withHeadings = false);
    /// Pastes the text of the clipboard from the current cell on, when it is a table or, as a single cell, can stand
    /// there; else the rows that were copied here last, whose text it may be. One copied row goes into every chosen
    /// row. Cells that cannot be taken are told: then nothing is pasted, or with leave the rows that have none.
    void paste(const std::vector<int>& rows, const std::string& clipboard);
    /// All by one row, up or down, past the row that is in the way.
    void moveRows(const std::vector<int>& rows, bool up);
    void undo();
    void redo();
    /// Makes the next row current, or the one before, in sight and after the current one, whose fields hold the text as
    /// a code or readable, whatever the case; goes on at the other end. False where there is none.
    bool find(const std::string& text, bool forward);

    /// A choice of the pop-up list.
    void List1_Click(int entry, const std::vector<int>& rows, const std::string& clipboard);
    /// C copies, V pastes; whether Ctrl is held does not matter.
    void FlexGrid1_KeyDown(char key, const std::vector<int>& rows, const std::string& clipboard);

private:
    void inOneStep(const std::string& what, const std::function<void()>& change);
    void markYellow(const std::vector<int>& rows);
    void pasteCopied(const std::vector<int>& rows);
    void pasteText(const std::string& text);
    void place(const std::map<int, MemoryRow>& rows);
    bool isForCurrentCell(const std::string& text) const;
    int columnWith(int row, const std::string& text) const;

    MemoryList& m_list;
    MemoryListFace& m_face;
    MsgBox& m_msgBox;
    std::vector<MemoryRow> m_copied;
    std::string m_copiedText;
    Connection m_rowsChanged;
};

}  // namespace korvex
