#include "memory/MemoryListFile.h"

#include <optional>

#include "base/CodePage.h"
#include "base/Lines.h"

namespace korvex {

namespace {

std::optional<std::string> whyNotKept(const std::string& remark) {
    if (const auto character = firstInexpressible(remark)) {
        return "the character \"" + *character + "\" cannot be stored in a memory list file.";
    }
    if (remark.find_first_of(crLf) != std::string::npos) return "a line break cannot be stored in a memory list file.";
    return std::nullopt;
}

}  // namespace

std::map<int, MemoryRecord> parseMemoryListFile(std::string_view content) {
    std::map<int, MemoryRecord> records;
    FieldReader values(content);
    while (const auto value = values.next()) {
        const int row = memoryListRow(memoryFieldIn(*value, MemoryField::Channel));
        if (row == 0) continue;
        if (auto record = parseMemoryString(*value)) records[row] = std::move(*record);
    }
    return records;
}

Result<std::string> memoryListFileText(const MemoryList& list) {
    std::string text;
    for (int row = 1; row <= MemoryList::rows; ++row) {
        if (!list.filled(row)) continue;
        const std::string& remark = list.cell(row, MemoryField::Remark);
        if (const auto reason = whyNotKept(remark)) {
            return RuntimeError{errors::TypeMismatch, "Remark of channel " + channelText(row) + ": " + *reason +
                                                          "\r\nPlease change the remark. No file was written."};
        }
        MemoryRecord record = list.channelFields(row);
        record[MemoryField::Remark] = *wireFromUtf8(remark);
        text.append(memoryListLine(record)).append(crLf);
    }
    return text.append(crLf);
}

}  // namespace korvex
