#include "platform/posix/UnfinishedFile.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace korvex {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view randomPart = "XXXXXX";

fs::path folderOf(const std::string& target) {
    const fs::path path = target;
    return path.has_parent_path() ? path.parent_path() : fs::path(".");
}

/// A long name is cut, at the beginning of a character: with the ending it would be longer than a name may be.
std::string unfinishedPrefix(const std::string& target) {
    constexpr std::size_t longest = 120;
    std::string name = fs::path(target).filename().string();
    if (name.size() > longest) {
        std::size_t end = longest;
        while (end > 0 && (static_cast<unsigned char>(name[end]) & 0xC0U) == 0x80U) --end;
        name.resize(end);
    }
    return name + ".unfinished-";
}

/// Whoever still writes it holds its lock, and the lock of a program that is gone is gone as well.
void removeUnlessLocked(const fs::path& file) {
    const Descriptor descriptor(::open(file.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (descriptor.isOpen() && ::flock(descriptor.get(), LOCK_EX | LOCK_NB) == 0) ::unlink(file.c_str());
}

mode_t modeOfNewFiles() {
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

}  // namespace

UnfinishedFile::~UnfinishedFile() {
    if (!m_path.empty()) ::unlink(m_path.c_str());
}

int UnfinishedFile::write(std::string_view content) {
    removeLeftovers();  // first: they take room on a full disk
    if (const int error = create()) return error;
    return m_file.writeAll(content);
}

void UnfinishedFile::removeLeftovers() const {
    const std::string prefix = unfinishedPrefix(m_target);
    std::error_code error;
    for (fs::directory_iterator entry(folderOf(m_target), error), end; !error && entry != end; entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        if (name.size() == prefix.size() + randomPart.size() && name.starts_with(prefix)) {
            removeUnlessLocked(entry->path());
        }
    }
}

int UnfinishedFile::create() {
    struct stat status {};
    do {
        const fs::path name = unfinishedPrefix(m_target) + std::string(randomPart);
        std::string path = (folderOf(m_target) / name).string();
        m_file = Descriptor(::mkostemp(path.data(), O_CLOEXEC));
        if (!m_file.isOpen()) return errno;
        m_path = path;
        ::flock(m_file.get(), LOCK_EX);
        // Another save may have come in between and have taken it for a leftover.
    } while (::fstat(m_file.get(), &status) == 0 && status.st_nlink == 0);
    return 0;
}

/// Not every file system knows permissions and owners, and not every user may give a file away: the content counts.
void UnfinishedFile::inheritPermissions() const {
    struct stat old {};
    const bool replaces = ::stat(m_target.c_str(), &old) == 0;
    if (replaces && ::fchown(m_file.get(), old.st_uid, old.st_gid) != 0) {
        static_cast<void>(!::fchown(m_file.get(), static_cast<uid_t>(-1), old.st_gid));
    }
    ::fchmod(m_file.get(), replaces ? old.st_mode & 07777 : modeOfNewFiles());
}

/// Some file systems tell of a full disk only when the file is closed. A copy is closed, because with the file itself
/// the lock would go.
int UnfinishedFile::flush() const {
    if (::fsync(m_file.get()) != 0) return errno;
    return Descriptor(::dup(m_file.get())).close();
}

int UnfinishedFile::replaceTarget() {
    inheritPermissions();
    if (const int error = flush()) return error;
    if (::rename(m_path.c_str(), m_target.c_str()) != 0) return errno;
    m_path.clear();
    makeRenameDurable();
    return 0;
}

void UnfinishedFile::makeRenameDurable() const {
    const Descriptor folder(::open(folderOf(m_target).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder.isOpen()) ::fsync(folder.get());
}

}  // namespace korvex
