#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "base/RuntimeError.h"
#include "memory/MemoryRecord.h"

namespace korvex {

/// Memory channels in the CSV that CHIRP reads and writes: MHz with six decimals, "+" and "-" with an offset in MHz,
/// "Tone" with rToneFreq, "TSQL" with cToneFreq. The remark is the Name; on the way back Name and Comment are the
/// remark.
///
/// Whatever the other side cannot hold is left out by name: `losses` has a line for each, UTF-8.
struct ChirpExport {
    std::string csv;
    std::vector<std::string> losses;
};
ChirpExport chirpFrom(const std::vector<MemoryRecord>& channels);

struct ChirpImport {
    std::map<int, MemoryRecord> channels;  ///< by number, 1..99
    std::vector<std::string> losses;
};
/// Fails for what is no such CSV at all. A row that the radio could not hold is left out and told.
Result<ChirpImport> channelsFromChirp(std::string_view csv);

/// Whether a CSV has CHIRP's columns.
bool isChirp(std::string_view csv);

}  // namespace korvex
