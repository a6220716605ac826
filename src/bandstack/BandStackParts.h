#pragma once

#include <string>
#include <string_view>

#include "bandstack/BandStackCells.h"

/// Parts of the band stack as a person speaks of them.

namespace korvex {

/// "20 m / 2": which register a column holds.
std::string registerInWords(int column);
/// The first column of a column's band.
int firstOfBand(int column);
/// "20 m"
std::string bandInWords(int column);
/// "VFO A frequency", for the query of a row; rows 23 and 24 have the same one.
std::string_view settingInWords(std::string_view query, int row);

/// The frequency that an answer to FA; or FB; tells, in groups; every other text as it is.
std::string readableAnswer(const std::string& answer);

/// The number of the band in which the frequency of an answer to FA; lies, -1 where none has it.
int bandOfFrequency(const std::string& answer);

/// Whether a column holds every setting that all files have.
bool isWholeRegister(const BandStackCells& cells, int column);

/// What writes only the band of a column: to the writer the others are refused ones, and no band-select command of
/// theirs goes out.
BandStackCells onlyBandOf(const BandStackCells& cells, int column);
/// What writes only the register of a column, into the one that the radio stands on: no band-select command goes out,
/// because none addresses a register.
BandStackCells onlyRegisterOf(const BandStackCells& cells, int column);

}  // namespace korvex
