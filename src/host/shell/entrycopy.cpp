#include "host/shell/entrycopy.h"

#include "host/files/filecontents.h"
#include "host/files/filedescriptor.h"
#include "host/files/folder.h"
#include "host/files/pendingfile.h"

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

/// A link beside the target, under a hidden name; empty if it cannot be made.
std::string makeHiddenLink(const std::string& destination, const std::string& target) {
    for (unsigned number = 0;; ++number) {
        std::string path = joined(parentOf(target), ".mox-link-" + std::to_string(getpid()) + "-" + std::to_string(number));
        if (symlink(destination.c_str(), path.c_str()) == 0) {
            return path;
        }
        if (errno != EEXIST) {
            return {};
        }
    }
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
    if (!source || fstat(source.number(), &facts) != 0) {
        return false;
    }
    PendingFile target(to, 0600);
    return target && copyContents(source.number(), target.number()) && copyFacts(source.number(), facts, target.number()) &&
           target.complete(replace);
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
    const std::string made = makeHiddenLink(destination, to);
    if (made.empty()) {
        return false;
    }
    const std::array<timespec, 2> times{facts.st_atim, facts.st_mtim};
    utimensat(AT_FDCWD, made.c_str(), times.data(), AT_SYMLINK_NOFOLLOW);
    const bool done = renameEntry(made, to, replace);
    if (!done) {
        const int error = errno;
        unlink(made.c_str());
        errno = error;
    }
    return done;
}

bool copyFolderFacts(const std::string& from, const std::string& to) {
    const FileDescriptor source(open(from.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    const FileDescriptor target(open(to.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    struct stat facts {};
    return source && target && fstat(source.number(), &facts) == 0 && copyFacts(source.number(), facts, target.number());
}

bool renameEntry(const std::string& from, const std::string& to, bool replace) {
    return replace ? rename(from.c_str(), to.c_str()) == 0 : renameWithoutReplacing(from, to);
}

} // namespace mox::host
