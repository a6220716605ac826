#include "memory/MemoryListFile.h"

#include "base/CodePage.h"
#include "base/Lines.h"
#include "memory/FileLine.h"

namespace korvex {

std::optional<std::string> whyRemarkIsRefused(const std::string& remark) {
    constexpr const char* cannot = " cannot be kept in a memory list file.";
    if (const auto character = firstInexpressible(remark)) return "The character \"" + *character + "\"" + cannot;
    if (remark.find_first_of(crLf) != std::string::npos) return std::string("A line end") + cannot;
    if (remark.find(',') != std::string::npos) return std::string("A comma") + cannot;
    return std::nullopt;
}

Result<std::map<int, MemoryRecord>> parseMemoryListFile(std::string_view content) {
    std::map<int, MemoryRecord> records;
    FieldReader values(content);
    while (const auto value = values.next()) {
        auto record = parseMemoryString(*value);
        if (!record) continue;
        if (!hasMemoryShape(*value)) {
            if (!beginsItsLine(content, *value)) continue;  // the rest of a remark with a comma
            return RuntimeError{errors::TypeMismatch, lineInWords(content, *value) + " is no memory channel"};
        }
        const int row = memoryListRow((*record)[MemoryField::Channel]);
        if (row != 0) records[row] = std::move(*record);
    }
    return records;
}

Result<std::string> memoryListFileText(const MemoryList& list) {
    std::string text;
    for (int row = 1; row <= MemoryList::rows; ++row) {
        if (!list.filled(row)) continue;
        const std::string& remark = list.cell(row, MemoryField::Remark);
        if (const auto reason = whyRemarkIsRefused(remark)) {
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
