#include "host/files/pendingfile.h"

#include "host/files/folder.h"

#include <fcntl.h>
#include <sys/random.h>
#include <sys/stat.h>

#include <cerrno>
#include <charconv>
#include <cstdint>
#include <cstdio>

namespace mox::host {

namespace {

std::string randomName() {
    std::uint64_t number = 0;
    if (getrandom(&number, sizeof number, 0) != sizeof number) {
        number = static_cast<std::uint64_t>(getpid());
    }
    char digits[16];
    return std::string(".mox-").append(digits, std::to_chars(digits, digits + sizeof digits, number, 16).ptr);
}

/// For disks that cannot rename without replacing.
bool renameIfMissing(const std::string& from, const std::string& to) {
    if (link(from.c_str(), to.c_str()) == 0) {
        return unlink(from.c_str()) == 0;
    }
    if (errno == EEXIST || existsOnDisk(to)) {
        errno = EEXIST;
        return false;
    }
    return rename(from.c_str(), to.c_str()) == 0;
}

bool exchange(const std::string& one, const std::string& other) {
    return renameat2(AT_FDCWD, one.c_str(), AT_FDCWD, other.c_str(), RENAME_EXCHANGE) == 0;
}

/// Puts a file in the place of another one. Some disks wait at a rename that replaces until all of the new file is written, which
/// for a large one takes longer than the copying: so the two change places, and the old one is deleted.
bool replaceFile(const std::string& from, const std::string& to) {
    if (!exchange(from, to)) {
        return std::rename(from.c_str(), to.c_str()) == 0;
    }
    if (unlink(from.c_str()) != 0) {
        const int error = errno;
        exchange(from, to); // by now it was a folder, or the system does not let the old one go
        errno = error;
        return false;
    }
    return true;
}

} // namespace

PendingFile::PendingFile(const std::string& target, mode_t mode) : target_(target) {
    constexpr int attempts = 100;
    for (int i = 0; i < attempts && !file_; ++i) {
        path_ = joined(parentOf(target), randomName());
        file_ = FileDescriptor(open(path_.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, mode | S_IWUSR));
        if (!file_ && errno != EEXIST) {
            break;
        }
    }
    if (!file_) {
        path_.clear();
    }
}

PendingFile::~PendingFile() {
    if (!path_.empty()) {
        unlink(path_.c_str());
    }
}

bool PendingFile::complete(bool replace) {
    const bool done = file_.close() && (replace ? replaceFile(path_, target_) : renameWithoutReplacing(path_, target_));
    if (done) {
        path_.clear();
    }
    return done;
}

bool renameWithoutReplacing(const std::string& from, const std::string& to) {
    if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) {
        return true;
    }
    return (errno == EINVAL || errno == ENOSYS) && renameIfMissing(from, to);
}

} // namespace mox::host
