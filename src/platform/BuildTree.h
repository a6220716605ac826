#pragma once

#include <string>
#include <vector>

namespace korvex {

/// Whether CMake builds there: the folder goes with the next "rm -rf build", and nobody's files may be in it. Paths are
/// UTF-8.
bool isInBuildTree(const std::string& folder);

/// What an owner has in the folder of a program that was built there: everything in "files", and the description
/// database unless it is as it was shipped. Names as seen from that folder.
std::vector<std::string> ownersThingsIn(const std::string& buildFolder);

/// Moves them into another folder, under the same names. What has a namesake there goes into a folder "from-build" in
/// it, or "from-build-2" and so on: nothing is overwritten, and what cannot be moved stays where it is. Gives back what
/// the owner has to know; empty when there was nothing to move.
std::string moveOutOfBuildTree(const std::string& buildFolder, const std::string& folder);

}  // namespace korvex
