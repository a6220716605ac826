#pragma once

#include <string>
#include <string_view>

#include "base/RuntimeError.h"

namespace korvex {

/// A text file's content as UTF-8, whatever a spreadsheet or an editor wrote it in: UTF-8 with or without a byte order
/// mark, UTF-16 of either order, with a mark or known by its zero bytes, else Windows-1252. Only UTF-16 with half a
/// character in it is refused.
Result<std::string> utf8FromAnyEncoding(std::string_view content);

}  // namespace korvex
