#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/RuntimeError.h"

namespace korvex {

/// Whole files, byte for byte (wire text). Paths are UTF-8. Failures carry FileNotFound, PathNotFound (a folder on the
/// way is missing), PathFileAccess (no permission, a folder instead of a file), DiskFull or DeviceIo.
namespace textfile {

/// The largest file that is read; data files of the program have a few kB. A longer one is refused (PathFileAccess).
inline constexpr std::size_t largestFile = std::size_t{64} * 1024 * 1024;

Result<std::string> read(const std::string& path);

/// Writes beside the file and renames, so that a crash or a full disk leaves the old file or the new one. A symbolic
/// link is followed and stays, also one to a file that is not there yet; permissions and owner of an existing file are
/// kept, and one that may not be written to is not replaced either. A device or a pipe is written to as it
/// stands, and so is what the program has open already ("/dev/stdout"), also when it is a file.
Failure write(const std::string& path, std::string_view content);

/// What would keep `write` from writing, as far as it can be told without touching anything.
Failure whyNotWritable(const std::string& path);

}  // namespace textfile

}  // namespace korvex
