#pragma once

#include <string>
#include <string_view>

#include "base/RuntimeError.h"
#include "report/RadioReport.h"

namespace korvex {

/// A report as a text that is good to read and to send, UTF-8 with LF.
std::string reportText(const RadioReport& report);

/// What a report's text says, as far as a simulated radio can be made of it: what follows from it (beliefs' sentences,
/// advice) is passed over, and lines that make no sense are, too. Refused (TypeMismatch) is what is no report, and one
/// of a later version.
Result<RadioReport> parseReport(std::string_view text);

/// The lines in which reports of two radios that behave alike are the same: without how and when it was made.
std::string behaviourText(const RadioReport& report);

inline constexpr std::string_view reportHeading = "Korvex radio report, version 1";

}  // namespace korvex
