#pragma once

#include <string>
#include <string_view>

#include "platform/posix/Descriptor.h"

namespace korvex {

/// The content that is to replace a file, beside it under a name of its own until it is whole; then it takes the file's
/// place in one step. Functions give an error number of the system, 0 when all went well.
///
/// A program that is killed meanwhile leaves "NAME.unfinished-Ab12Cd" behind, which no file dialog offers. It is locked
/// as long as somebody writes it, so that the next save of the same file knows what is a leftover and removes it.
class UnfinishedFile {
public:
    /// `target` is no symbolic link.
    explicit UnfinishedFile(std::string target) : m_target(std::move(target)) {}
    UnfinishedFile(const UnfinishedFile&) = delete;
    UnfinishedFile& operator=(const UnfinishedFile&) = delete;
    ~UnfinishedFile();

    int write(std::string_view content);
    /// With the permissions and, as far as the system lets us, the owner of the file that it replaces.
    int replaceTarget();

private:
    void removeLeftovers() const;
    int create();
    void inheritPermissions() const;
    int flush() const;
    void makeRenameDurable() const;

    std::string m_target;
    std::string m_path;  // empty when there is none
    Descriptor m_file;
};

}  // namespace korvex
