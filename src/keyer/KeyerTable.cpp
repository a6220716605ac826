#include "keyer/KeyerTable.h"

#include "base/CodePage.h"

namespace korvex {

namespace {

std::string inexpressible(const std::string& utf8) {
    const auto character = firstInexpressible(utf8);
    return character ? "\"" + *character + "\" is not in Windows-1252" : "";
}

}  // namespace

KeyerTable::KeyerTable() {
    auto& grid = MSFlexGrid_k1;
    grid.setFixed(1, 1);
    grid.setColWidth(labelColumn, 700);
    grid.setColWidth(textColumn, 8350);
    grid.setColWidth(countColumn, 950);
    grid.setColAlignment(textColumn, MSFlexGrid::Alignment::Left);
    for (int column = 0; column < columns; ++column) {
        grid.setTextMatrix(0, column, keyerTitles.at(static_cast<std::size_t>(column)));
    }
    for (int row = 1; row < rows; ++row) grid.setTextMatrix(row, labelColumn, keyerReadCommand(row));
}

KeyerTexts KeyerTable::texts() const {
    KeyerTexts texts;
    for (int row = 1; row < rows; ++row) {
        keyerText(texts, row) = WireText(wireFromUtf8(MSFlexGrid_k1.TextMatrix(row, textColumn)).value_or(""));
    }
    return texts;
}

KeyerFileRows KeyerTable::fileRows() const {
    KeyerFileRows all(rows);
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            all.at(static_cast<std::size_t>(row)).at(static_cast<std::size_t>(column)) =
                wireFromUtf8(MSFlexGrid_k1.TextMatrix(row, column)).value_or("");
        }
    }
    return all;
}

void KeyerTable::setText(int memory, const WireText& text) {
    MSFlexGrid_k1.setTextMatrix(memory, textColumn, text.utf8());
    MSFlexGrid_k1.setTextMatrix(memory, countColumn, std::to_string(text.size()));
}

void KeyerTable::clearTexts() {
    for (int row = 1; row < rows; ++row) {
        MSFlexGrid_k1.setTextMatrix(row, textColumn, "");
        MSFlexGrid_k1.setTextMatrix(row, countColumn, "");
    }
}

void KeyerTable::fill(const KeyerFileRows& fileRows) {
    MSFlexGrid_k1.setRedraw(false);
    for (int row = 0; row < rows; ++row) {
        const auto index = static_cast<std::size_t>(row);
        for (int column = textColumn; column < columns; ++column) {
            const auto cell = static_cast<std::size_t>(column);
            MSFlexGrid_k1.setTextMatrix(row, column,
                                        index < fileRows.size() ? utf8FromWire(fileRows[index].at(cell)) : "");
        }
    }
    if (!fileRows.empty()) MSFlexGrid_k1.setTextMatrix(0, labelColumn, utf8FromWire(fileRows.front().front()));
    MSFlexGrid_k1.setRedraw(true);
}

std::string KeyerTable::whyNotSendable(int row) const {
    const std::string& text = MSFlexGrid_k1.TextMatrix(row, textColumn);
    const auto why = korvex::whyNotSendable(WireText(text));
    return why.empty() ? inexpressible(text) : why;
}

std::string KeyerTable::whyNotStorable(int row) const {
    for (int column = 0; column < columns; ++column) {
        const std::string& text = MSFlexGrid_k1.TextMatrix(row, column);
        if (text.find('|') != std::string::npos) return "\"|\" separates the columns of the file";
        if (auto why = inexpressible(text); !why.empty()) return why;
    }
    return "";
}

}  // namespace korvex
