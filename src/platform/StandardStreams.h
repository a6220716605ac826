#pragma once

namespace korvex::standardstreams {

/// A program that was started without standard input, output or errors (">&-") would get the numbers of those for the
/// next files that it opens, the radio's port among them, and what it prints would go there. This takes the numbers;
/// what is written to them fails as before. First of all in `main`.
void keepNumbersTaken();

/// Whether somebody sees the errors at once, on a terminal.
bool errorsAreOnTerminal();

}  // namespace korvex::standardstreams
