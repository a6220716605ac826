#include "platform/TextFile.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

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

/// An open file that is closed at the end of the scope.
class Descriptor {
public:
    explicit Descriptor(int fd) : m_fd(fd) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (m_fd >= 0) ::close(m_fd);
    }
    int get() const { return m_fd; }
    /// The error number of closing, 0 when all went well: some file systems tell of a full disk only here.
    int close() { return ::close(std::exchange(m_fd, -1)) == 0 ? 0 : errno; }

private:
    int m_fd;
};

int writeAll(int fd, std::string_view content) {
    while (!content.empty()) {
        const auto written = ::write(fd, content.data(), content.size());
        if (written < 0) {
            if (errno == EINTR) continue;
            return errno;
        }
        content.remove_prefix(static_cast<std::size_t>(written));
    }
    return 0;
}

/// Where the content really goes: the end of a chain of links, also of one whose end does not exist yet.
fs::path linkTarget(fs::path path) {
    constexpr int longestChain = 40;
    std::error_code error;
    for (int i = 0; i < longestChain && fs::is_symlink(path, error); ++i) {
        const auto target = fs::read_symlink(path, error);
        if (error) break;
        path = target.is_absolute() ? target : path.parent_path() / target;
    }
    return path;
}

mode_t modeFor(const fs::path& target) {
    struct stat status {};
    if (::stat(target.c_str(), &status) == 0) return status.st_mode & 07777;
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

int writeBeside(const std::string& target, std::string_view content, std::string& beside) {
    beside = target + ".XXXXXX";
    Descriptor file(::mkstemp(beside.data()));
    if (file.get() < 0) {
        beside.clear();
        return errno;
    }
    if (const int error = writeAll(file.get(), content)) return error;
    if (::fchmod(file.get(), modeFor(target)) != 0) return errno;
    if (::fsync(file.get()) != 0) return errno;
    return file.close();
}

/// A target that cannot be replaced must be refused before anything is written: renaming over it would pass by its
/// write protection.
int refusal(const std::string& target) {
    struct stat status {};
    if (::stat(target.c_str(), &status) != 0) return 0;
    if (S_ISDIR(status.st_mode)) return EISDIR;
    return ::access(target.c_str(), W_OK) == 0 ? 0 : errno;
}

void makeRenameDurable(const fs::path& target) {
    const auto folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
    const Descriptor descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor.get() >= 0) ::fsync(descriptor.get());
}

/// Devices and pipes ("/dev/stdout") cannot be renamed over: they are written to as they stand.
bool isRegularOrAbsent(const std::string& target) {
    struct stat status {};
    return ::stat(target.c_str(), &status) != 0 || S_ISREG(status.st_mode) || S_ISDIR(status.st_mode);
}

int writeInPlace(const std::string& target, std::string_view content) {
    Descriptor file(::open(target.c_str(), O_WRONLY | O_CLOEXEC));
    if (file.get() < 0) return errno;
    if (const int error = writeAll(file.get(), content)) return error;
    return file.close();
}

}  // namespace

Result<std::string> read(const std::string& path) {
    Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (file.get() < 0) return failure(path, errno);
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
    const std::string target = linkTarget(path).string();
    if (const int error = refusal(target)) return failure(path, error);
    if (!isRegularOrAbsent(target)) {
        if (const int error = writeInPlace(target, content)) return failure(path, error);
        return {};
    }
    std::string beside;
    int error = writeBeside(target, content, beside);
    if (error == 0 && ::rename(beside.c_str(), target.c_str()) != 0) error = errno;
    if (error != 0) {
        if (!beside.empty()) ::unlink(beside.c_str());
        return failure(path, error);
    }
    makeRenameDurable(target);
    return {};
}

}  // namespace korvex::textfile
