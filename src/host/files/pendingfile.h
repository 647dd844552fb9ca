// A file that is being written and has no name of its own yet.
#pragma once

#include "host/files/filedescriptor.h"

#include <sys/types.h>

#include <string>

namespace mox::host {

/// A new file beside its target, under a hidden name. It takes the target's name when it is complete, and is gone if it never is.
class PendingFile {
public:
    /// `mode`: the permissions that the file is to have but for those that the process masks out; the owner may write at first.
    PendingFile(const std::string& target, mode_t mode);
    ~PendingFile();
    PendingFile(const PendingFile&) = delete;
    PendingFile& operator=(const PendingFile&) = delete;

    /// False, with the reason in `errno`, if it could not be made.
    explicit operator bool() const noexcept { return static_cast<bool>(file_); }
    int number() const noexcept { return file_.number(); }
    /// Gives it the target's name, in the place of a file of that name if `replace`. False if that fails.
    bool complete(bool replace);

private:
    const std::string target_;
    std::string path_;
    FileDescriptor file_;
};

/// Gives a file or folder on disk a new name unless there is something of that name. False, with the reason in `errno`, if that
/// fails.
bool renameWithoutReplacing(const std::string& from, const std::string& to);

} // namespace mox::host
