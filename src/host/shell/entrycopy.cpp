#include "host/shell/entrycopy.h"

#include "host/files/folder.h"
#include "host/shell/filedescriptor.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <vector>

namespace mox::host {

namespace {

constexpr mode_t permissionBits = 0777;

/// A name beside the target that is removed again unless the entry takes its place.
class TemporaryEntry {
public:
    explicit TemporaryEntry(const std::string& target) : path_(joined(parentOf(target), ".mox-XXXXXX")) {}
    ~TemporaryEntry() {
        if (made_) {
            const int error = errno;
            unlink(path_.c_str());
            errno = error;
        }
    }
    TemporaryEntry(const TemporaryEntry&) = delete;
    TemporaryEntry& operator=(const TemporaryEntry&) = delete;

    int makeFile() {
        const int descriptor = mkostemp(path_.data(), O_CLOEXEC);
        made_ = descriptor >= 0;
        return descriptor;
    }
    bool makeLink(const std::string& destination) {
        // Only the name is wanted: a link cannot be made over a file.
        const FileDescriptor file(makeFile());
        made_ = file && unlink(path_.c_str()) == 0 && symlink(destination.c_str(), path_.c_str()) == 0;
        return made_;
    }
    bool takePlace(const std::string& target, bool replace) {
        const bool done = renameEntry(path_, target, replace);
        made_ = !done;
        return done;
    }
    const std::string& path() const noexcept { return path_; }

private:
    std::string path_;
    bool made_ = false;
};

bool writeAll(int to, const char* data, std::size_t length) {
    while (length > 0) {
        const ssize_t written = write(to, data, length);
        if (written < 0 && errno != EINTR) {
            return false;
        }
        data += written > 0 ? written : 0;
        length -= written > 0 ? static_cast<std::size_t>(written) : 0;
    }
    return true;
}

/// From the present positions to the end.
bool copyByReading(int from, int to) {
    std::vector<char> buffer(1U << 18);
    for (;;) {
        const ssize_t length = read(from, buffer.data(), buffer.size());
        if (length == 0) {
            return true;
        }
        if (length < 0 ? errno != EINTR : !writeAll(to, buffer.data(), static_cast<std::size_t>(length))) {
            return false;
        }
    }
}

bool copyContents(int from, int to) {
    constexpr std::size_t most = 1U << 30;
    ssize_t copied = 0;
    do {
        copied = copy_file_range(from, nullptr, to, nullptr, most, 0);
    } while (copied > 0 || (copied < 0 && errno == EINTR));
    const bool isUnable = copied < 0 && (errno == EXDEV || errno == EINVAL || errno == ENOSYS || errno == EOPNOTSUPP);
    // Files that the system makes up as they are read have no length to copy by.
    return (copied == 0 || isUnable) && copyByReading(from, to);
}

void copyAttributes(int from, int to) {
    constexpr std::string_view ofUser = "user.";
    const ssize_t length = flistxattr(from, nullptr, 0);
    std::string names(length > 0 ? static_cast<std::size_t>(length) : 0, '\0');
    const ssize_t listed = flistxattr(from, names.data(), names.size());
    names.resize(listed > 0 ? static_cast<std::size_t>(listed) : 0);
    for (std::string_view rest = names; !rest.empty();) {
        const std::string name(rest.substr(0, rest.find('\0')));
        rest.remove_prefix(std::min(name.size() + 1, rest.size()));
        const ssize_t size = name.starts_with(ofUser) ? fgetxattr(from, name.c_str(), nullptr, 0) : -1;
        std::vector<char> value(size > 0 ? static_cast<std::size_t>(size) : 0);
        if (size >= 0 && fgetxattr(from, name.c_str(), value.data(), value.size()) == size) {
            fsetxattr(to, name.c_str(), value.data(), value.size(), 0); // not every disk keeps them
        }
    }
}

/// `facts`: of `from`, before it was read.
bool copyFacts(int from, const struct stat& facts, int to) {
    copyAttributes(from, to);
    const std::array<timespec, 2> times{facts.st_atim, facts.st_mtim};
    const bool hasMode = fchmod(to, facts.st_mode & permissionBits) == 0 || errno == EPERM;
    return hasMode && (futimens(to, times.data()) == 0 || errno == EPERM);
}

} // namespace

bool copyFile(const std::string& from, const std::string& to, bool replace) {
    const FileDescriptor source(open(from.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat facts {};
    if (!source || fstat(source.get(), &facts) != 0) {
        return false;
    }
    TemporaryEntry temporary(to);
    FileDescriptor target(temporary.makeFile());
    return target && copyContents(source.get(), target.get()) && copyFacts(source.get(), facts, target.get()) &&
           target.finish() && temporary.takePlace(to, replace);
}

bool copyLink(const std::string& from, const std::string& to, bool replace) {
    struct stat facts {};
    if (lstat(from.c_str(), &facts) != 0) {
        return false;
    }
    std::string destination(facts.st_size > 0 ? static_cast<std::size_t>(facts.st_size) + 1 : 4096, '\0');
    const ssize_t length = readlink(from.c_str(), destination.data(), destination.size());
    if (length < 0) {
        return false;
    }
    destination.resize(static_cast<std::size_t>(length));
    TemporaryEntry temporary(to);
    if (!temporary.makeLink(destination)) {
        return false;
    }
    const std::array<timespec, 2> times{facts.st_atim, facts.st_mtim};
    utimensat(AT_FDCWD, temporary.path().c_str(), times.data(), AT_SYMLINK_NOFOLLOW);
    return temporary.takePlace(to, replace);
}

bool copyFolderFacts(const std::string& from, const std::string& to) {
    const FileDescriptor source(open(from.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    const FileDescriptor target(open(to.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    struct stat facts {};
    return source && target && fstat(source.get(), &facts) == 0 && copyFacts(source.get(), facts, target.get());
}

bool renameEntry(const std::string& from, const std::string& to, bool replace) {
    if (replace) {
        return rename(from.c_str(), to.c_str()) == 0;
    }
    if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) {
        return true;
    }
    if (errno != EINVAL && errno != ENOSYS) {
        return false;
    }
    // The disk cannot do it in one step.
    if (existsOnDisk(to)) {
        errno = EEXIST;
        return false;
    }
    return rename(from.c_str(), to.c_str()) == 0;
}

} // namespace mox::host
