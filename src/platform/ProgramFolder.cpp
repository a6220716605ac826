#include "platform/ProgramFolder.h"

#include <filesystem>

#include "platform/BuildTree.h"
#include "platform/Writable.h"

namespace korvex {

namespace {

namespace fs = std::filesystem;

bool isFolder(const fs::path& path) {
    std::error_code ignored;
    return fs::is_directory(path, ignored);
}

fs::path installedData(const fs::path& program) {
    return program / "../share/korvex";
}

fs::path choose(const ProgramPlaces& places) {
    if (!places.named.empty()) return places.named;
    const bool unpacked =
        !isFolder(installedData(places.program)) && !isInBuildTree(places.program) && isWritable(places.program);
    return unpacked ? places.program : places.user;
}

/// Where an earlier version kept the owner's files although it stood in a build tree.
std::string formerFolder(const ProgramPlaces& places) {
    return places.named.empty() && isInBuildTree(places.program) ? places.program : std::string();
}

/// Beside the executable, installed, or in the sources above a build folder.
fs::path shippedHelp(const fs::path& program) {
    for (const fs::path& data : {program, installedData(program), program / "../data", program / "../../data"}) {
        if (isFolder(data / "helpfile")) return data / "helpfile";
    }
    return {};
}

/// A missing help page is no reason not to start: whoever opens it is told.
void bringHelp(const fs::path& program, const fs::path& folder) {
    const fs::path help = shippedHelp(program);
    std::error_code ignored;
    if (help.empty() || fs::equivalent(help, folder / "helpfile", ignored)) return;
    fs::copy(help, folder / "helpfile", fs::copy_options::recursive | fs::copy_options::update_existing, ignored);
}

/// Beside the executable in a folder of its own, so that what is shipped and what the owner fills are two files, or
/// installed.
fs::path shippedDatabase(const fs::path& program) {
    std::error_code ignored;
    for (const fs::path& data : {program / "data", installedData(program)}) {
        if (fs::is_regular_file(data / descriptionDatabaseName, ignored)) return data / descriptionDatabaseName;
    }
    return {};
}

/// Whatever has the name already stays, a link to nowhere too. What is copied is whole before it gets the name.
void bringDatabase(const fs::path& program, const fs::path& folder) {
    const fs::path shipped = shippedDatabase(program);
    const fs::path own = folder / descriptionDatabaseName;
    std::error_code error;
    if (shipped.empty() || fs::symlink_status(own, error).type() != fs::file_type::not_found) return;
    const fs::path beside = own.string() + ".new";
    error.clear();
    fs::copy_file(shipped, beside, fs::copy_options::overwrite_existing, error);
    if (!error) fs::permissions(beside, fs::perms::owner_write, fs::perm_options::add, error);
    if (!error) fs::rename(beside, own, error);
    if (error) fs::remove(beside, error);
}

}  // namespace

Result<ProgramFolder> makeProgramFolder(const ProgramPlaces& places) {
    std::error_code error;
    fs::path folder = fs::absolute(choose(places), error).lexically_normal();
    if (!folder.has_filename()) folder = folder.parent_path();
    fs::create_directories(folder / "files", error);
    if (error || !isWritable(folder.string())) {
        const std::string reason = error ? error.message() : "no permission to write there";
        return RuntimeError{errors::PathFileAccess, "The program folder " + folder.string() + " cannot be used: " +
                                                        reason + ". Name another one with --program-folder."};
    }
    ProgramFolder made{folder.string(), formerFolder(places), {}};
    if (!made.former.empty()) made.news = moveOutOfBuildTree(made.former, made.path);
    bringHelp(places.program, folder);
    bringDatabase(places.program, folder);
    return made;
}

std::string shippedDescriptions(const ProgramPlaces& places) {
    return shippedDatabase(places.program).string();
}

std::string findDescriptionDatabase(const ProgramPlaces& places) {
    std::error_code ignored;
    for (const fs::path& folder : {choose(places), fs::path(formerFolder(places))}) {
        const fs::path own = folder / descriptionDatabaseName;
        if (!folder.empty() && fs::is_regular_file(own, ignored)) return own.string();
    }
    return shippedDatabase(places.program).string();
}

}  // namespace korvex
