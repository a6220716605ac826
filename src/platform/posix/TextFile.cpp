#include "platform/TextFile.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <optional>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

#include "base/NumberText.h"
#include "platform/posix/UnfinishedFile.h"

namespace korvex::textfile {

namespace {

namespace fs = std::filesystem;

bool folderExists(const fs::path& file) {
    std::error_code ignored;
    const auto folder = file.parent_path();
    return folder.empty() || fs::is_directory(folder, ignored);
}

RuntimeError failure(const std::string& path, int systemError) {
    switch (systemError) {
        case ENOENT:
        case ENOTDIR:
            if (folderExists(path)) return {errors::FileNotFound, "File not found: " + path};
            return {errors::PathNotFound, "Path not found: " + path};
        case EACCES:
        case EPERM:
        case EROFS: return {errors::PathFileAccess, "Path/File access error: no permission for " + path};
        case EISDIR: return {errors::PathFileAccess, "Path/File access error: " + path + " is a folder"};
        case ENOSPC:
        case EDQUOT: return {errors::DiskFull, "Disk full: " + path};
        default:
            return {errors::DeviceIo,
                    "Device I/O error: " + path + ": " + std::generic_category().message(systemError)};
    }
}

/// Devices and pipes ("/dev/stdout") cannot be renamed over: they are written to as they stand.
bool isRegularOrAbsent(const std::string& target) {
    struct stat status {};
    return ::stat(target.c_str(), &status) != 0 || S_ISREG(status.st_mode) || S_ISDIR(status.st_mode);
}

/// Which of our own open files a name stands for: "/dev/stdout", "/dev/fd/3", "/proc/self/fd/1", or a link to one of
/// them. What the shell has opened is written to where it stands: it may hold something already (">>"), and what is
/// written after us must come behind it.
std::optional<int> openedAs(fs::path path) {
    const std::string ours = "/proc/" + std::to_string(::getpid());
    constexpr int longestChain = 40;
    std::error_code error;
    for (int i = 0; i < longestChain; ++i) {
        const std::string folder = fs::canonical(path.has_parent_path() ? path.parent_path() : ".", error).string();
        if (error) return std::nullopt;
        if (folder.starts_with(ours + "/") && folder.ends_with("/fd")) return parseWhole(path.filename().string());
        const auto target = fs::read_symlink(path, error);
        if (error) return std::nullopt;
        path = folder / target;
    }
    return std::nullopt;
}

/// Where the content really goes: the end of a chain of links, also of one whose end does not exist yet.
fs::path linkTarget(fs::path path) {
    if (!isRegularOrAbsent(path.string())) return path;  // the link to a pipe in /proc names nothing
    constexpr int longestChain = 40;
    std::error_code error;
    for (int i = 0; i < longestChain && fs::is_symlink(path, error); ++i) {
        const auto target = fs::read_symlink(path, error);
        if (error) break;
        path = target.is_absolute() ? target : path.parent_path() / target;
    }
    return path;
}

/// A target that cannot be replaced must be refused before anything is written: renaming over it would pass by its
/// write protection.
int refusal(const std::string& target) {
    struct stat status {};
    if (::stat(target.c_str(), &status) != 0) return errno == ENOENT ? 0 : errno;
    if (S_ISDIR(status.st_mode)) return EISDIR;
    return ::access(target.c_str(), W_OK) == 0 ? 0 : errno;
}

int writeToOpened(int opened, std::string_view content) {
    Descriptor file(::fcntl(opened, F_DUPFD_CLOEXEC, 0));
    if (!file.isOpen()) return errno;
    return file.writeAll(content);
}

int writeInPlace(const std::string& target, std::string_view content) {
    Descriptor file(::open(target.c_str(), O_WRONLY | O_CLOEXEC));
    if (!file.isOpen()) return errno;
    if (const int error = file.writeAll(content)) return error;
    return file.close();
}

int replace(const std::string& target, std::string_view content) {
    UnfinishedFile file(target);
    if (const int error = file.write(content)) return error;
    return file.replaceTarget();
}

}  // namespace

Result<std::string> read(const std::string& path) {
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (!file.isOpen()) return failure(path, errno);
    std::string content;
    std::array<char, 65536> buffer{};
    for (;;) {
        const auto got = ::read(file.get(), buffer.data(), buffer.size());
        if (got == 0) return content;
        if (got < 0) {
            if (errno == EINTR) continue;
            return failure(path, errno);
        }
        content.append(buffer.data(), static_cast<std::size_t>(got));
        if (content.size() > largestFile) {
            return RuntimeError{errors::PathFileAccess, "Path/File access error: " + path + " is too large"};
        }
    }
}

Failure write(const std::string& path, std::string_view content) {
    if (const auto opened = openedAs(path)) {
        const int error = writeToOpened(*opened, content);
        return error == 0 ? Failure() : failure(path, error);
    }
    const std::string target = linkTarget(path).string();
    int error = refusal(target);
    if (error == 0) error = isRegularOrAbsent(target) ? replace(target, content) : writeInPlace(target, content);
    if (error != 0) return failure(target, error);
    return {};
}

Failure whyNotWritable(const std::string& path) {
    if (const auto opened = openedAs(path)) {
        const int flags = ::fcntl(*opened, F_GETFL);
        if (flags < 0) return failure(path, errno);
        return (flags & O_ACCMODE) == O_RDONLY ? failure(path, EACCES) : Failure();
    }
    const fs::path target = linkTarget(path);
    int error = refusal(target.string());
    const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
    const bool getsReplaced = error == 0 && isRegularOrAbsent(target.string());
    if (getsReplaced && ::access(folder.c_str(), W_OK | X_OK) != 0) error = errno;
    if (error != 0) return failure(target.string(), error);
    return {};
}

}  // namespace korvex::textfile
