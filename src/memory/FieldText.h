#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/RuntimeError.h"
#include "memory/MemoryCodes.h"
#include "memory/MemoryRecord.h"

/// The fields of a channel as a person reads and writes them. All text is UTF-8.

namespace korvex {

/// The list that a field's code is from; null for a field that is typed.
const CodeList* codesOf(MemoryField field);

/// "14.250.000", "PKT-FM", "233.6" for the code in a cell. What has no such form comes back as it is.
std::string readableField(MemoryField field, const std::string& code);

/// The code for what a person or a spreadsheet has written, or why not, in words. Both forms are understood, the
/// readable and the code, whatever leading zeros a spreadsheet has taken away; empty is what the editor takes for it.
Result<std::string> fieldFromText(MemoryField field, const std::string& text);

/// What a field is called.
std::string_view fieldName(MemoryField field);

}  // namespace korvex
