#include "memory/EmptyOverFull.h"

#include "base/Lines.h"
#include "platform/TextFile.h"

namespace korvex {

bool mayBeEmptied(const std::string& file, MsgBox& msgBox) {
    const auto content = textfile::read(file);
    if (!content) return true;
    bool empty = true;
    FieldReader values(*content);
    while (const auto value = values.next()) empty = empty && value->empty();
    return empty ||
           msgBox.confirm("There is no channel to save, and " + file + " is not empty. Replace it by an empty file?");
}

}  // namespace korvex
