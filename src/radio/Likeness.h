#pragma once

#include "radio/RadioLine.h"
#include "radio/SimulatedRadio.h"
#include "report/RadioReport.h"

namespace korvex {

/// Makes a simulated radio behave as the one that a report tells of: it answers every question in the same form, takes
/// as long, refuses the same, and tells the same unasked. What the report leaves out for its owner's sake, frequencies,
/// texts and settings, stays what it is or becomes something of that form. Where another form of answer can only be
/// had as a fixed text, setting that value does not show.
void behaveLike(const RadioReport& report, SimulatedRadio& radio, RadioLine& line);

}  // namespace korvex
