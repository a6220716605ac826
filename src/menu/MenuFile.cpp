#include "menu/MenuFile.h"

#include "base/CodePage.h"
#include "base/Lines.h"
#include "cat/TransmitGuard.h"

namespace korvex {

namespace {

RuntimeError refused(const std::string& why) {
    return {errors::TypeMismatch, why + ", nothing was sent"};
}

}  // namespace

std::string menuFileText(const MenuCommandTable& table) {
    std::string text;
    for (int item = 1; item <= menuItemCount; ++item) {
        // A line is an item, whatever noise came with the answer.
        for (const char c : table.answer(item)) {
            if (c != '\r' && c != '\n') text += c;
        }
        text += crLf;
    }
    return text;
}

Result<std::vector<std::string>> menuFileLines(std::string_view content) {
    std::vector<std::string> lines;
    FieldReader reader(content);
    while (const auto field = reader.next()) {
        if (lines.size() == MenuCommandTable::lastRow) {
            return refused("The file has more than " + std::to_string(MenuCommandTable::lastRow) + " lines");
        }
        if (keysTransmitter(*field)) {
            return refused("Line " + std::to_string(lines.size() + 1) + " (" + utf8FromWire(field->substr(0, 20)) +
                           ") would key the transmitter");
        }
        lines.emplace_back(*field);
    }
    return lines;
}

int answersInPlace(const MenuCommandTable& table) {
    int count = 0;
    for (int item = 1; item <= menuItemCount; ++item) {
        const std::string& answer = table.answer(item);
        const std::string head = menuReadCommand(item).substr(0, 5);
        if (answer.starts_with(head) && answer.size() > head.size() + 1) ++count;
    }
    return count;
}

}  // namespace korvex
