#include "keyer/KeyerTable.h"

#include <algorithm>

#include "base/CodePage.h"

namespace korvex {

namespace {

bool isControl(char c) {
    return static_cast<unsigned char>(c) < ' ' || c == '\x7F';
}

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
    grid.setTextMatrix(0, labelColumn, "Mem.");
    grid.setTextMatrix(0, textColumn, "Keyer Text");
    grid.setTextMatrix(0, countColumn, "Char. Count");
    for (int row = 1; row < rows; ++row) grid.setTextMatrix(row, labelColumn, readCommand(row));
}

std::string KeyerTable::readCommand(int row) {
    return "KM" + std::to_string(row) + ";";
}

std::string KeyerTable::wireText(int row, int column) const {
    return wireFromUtf8(MSFlexGrid_k1.TextMatrix(row, column)).value_or("");
}

void KeyerTable::setText(int row, std::string_view wire) {
    MSFlexGrid_k1.setTextMatrix(row, textColumn, utf8FromWire(wire));
    MSFlexGrid_k1.setTextMatrix(row, countColumn, std::to_string(wire.size()));
}

void KeyerTable::clearTexts() {
    for (int row = 1; row < rows; ++row) {
        MSFlexGrid_k1.setTextMatrix(row, textColumn, "");
        MSFlexGrid_k1.setTextMatrix(row, countColumn, "");
    }
}

std::string KeyerTable::whyNotSendable(int row) const {
    const std::string& text = MSFlexGrid_k1.TextMatrix(row, textColumn);
    if (text.find(';') != std::string::npos) return "\";\" would end the command";
    if (std::any_of(text.begin(), text.end(), isControl)) return "it holds a line break or another control character";
    return inexpressible(text);
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
