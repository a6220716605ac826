#pragma once

#include <string>

namespace korvex {

/// Whether the system lets this user write to a file, or into a folder. The path is UTF-8.
bool isWritable(const std::string& path);

}  // namespace korvex
