#include "host/files/filefacts.h"

#include "host/files/filetimes.h"
#include "host/files/foldermark.h"
#include "host/files/storedfacts.h"

#include "platform/kernel32.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <string_view>

namespace mox::host {

namespace {

using namespace platform;

constexpr std::uint32_t storedAttributes =
    FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_TEMPORARY;
constexpr std::uint32_t attributesThatMatter = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
constexpr mode_t writeByAnyone = S_IWUSR | S_IWGRP | S_IWOTH;

std::uint64_t fileTime(const statx_timestamp& time) noexcept {
    return fileTimeOf(time.tv_sec, time.tv_nsec);
}

bool statAt(const std::string& path, int flags, struct statx& facts) noexcept {
    return statx(AT_FDCWD, path.c_str(), flags | AT_NO_AUTOMOUNT, STATX_BASIC_STATS | STATX_BTIME, &facts) == 0;
}

bool isSameFile(const struct statx& a, const struct statx& b) noexcept {
    return a.stx_ino == b.stx_ino && a.stx_dev_major == b.stx_dev_major && a.stx_dev_minor == b.stx_dev_minor;
}

/// True if `folder`, which `path` leads to, is also passed on the way from the drive's folder to `path`.
bool liesOnTheWay(const struct statx& folder, const DiskPath& path) {
    std::size_t end = path.text.rfind('/');
    while (end != std::string::npos && end >= path.rootLength) {
        struct statx passed {};
        if (statAt(path.text.substr(0, std::max<std::size_t>(end, 1)), 0, passed) && isSameFile(folder, passed)) {
            return true;
        }
        end = end == 0 ? std::string::npos : path.text.rfind('/', end - 1);
    }
    return false;
}

bool hasLeadingDot(const std::string& path) noexcept {
    const std::size_t name = path.rfind('/') + 1;
    return name < path.size() && path[name] == '.';
}

} // namespace

std::optional<FileFacts> readFacts(const DiskPath& path) {
    struct statx facts {};
    if (!statAt(path.text, AT_SYMLINK_NOFOLLOW, facts)) {
        return std::nullopt;
    }
    FileFacts result;
    if (S_ISLNK(facts.stx_mode)) {
        result.attributes |= FILE_ATTRIBUTE_REPARSE_POINT;
        struct statx target {};
        if (statAt(path.text, 0, target) && !(S_ISDIR(target.stx_mode) && liesOnTheWay(target, path))) {
            facts = target;
        }
    }
    const bool isFile = S_ISREG(facts.stx_mode);
    result.folder = S_ISDIR(facts.stx_mode);
    result.size = isFile ? facts.stx_size : 0;
    result.accessed = fileTime(facts.stx_atime);
    result.written = fileTime(facts.stx_mtime);
    result.created =
        (facts.stx_mask & STATX_BTIME) != 0 ? fileTime(facts.stx_btime) : std::min(result.written, fileTime(facts.stx_ctime));

    const StoredFacts stored = isFile || result.folder ? StoredFacts::read(path.text) : StoredFacts();
    result.created = stored.created.value_or(result.created);
    result.attributes |= stored.attributes.value_or(isFile ? FILE_ATTRIBUTE_ARCHIVE : 0) & storedAttributes;
    if (result.folder) {
        result.attributes |= FILE_ATTRIBUTE_DIRECTORY;
    } else if (isFile) {
        result.attributes |= (facts.stx_mode & S_IWUSR) == 0 ? FILE_ATTRIBUTE_READONLY : 0;
    } else if (!S_ISLNK(facts.stx_mode)) {
        result.attributes |= FILE_ATTRIBUTE_SYSTEM;
    }
    if (hasLeadingDot(path.text)) {
        result.attributes |= FILE_ATTRIBUTE_HIDDEN;
    }
    if (result.attributes == 0) {
        result.attributes = FILE_ATTRIBUTE_NORMAL;
    }
    return result;
}

bool writeAttributes(const DiskPath& path, std::uint32_t attributes) {
    const char* const text = path.text.c_str();
    const std::optional<FileFacts> before = readFacts(path);
    struct stat facts {};
    if (!before || stat(text, &facts) != 0 || before->folder != S_ISDIR(facts.st_mode)) {
        return false; // a link that shows itself has no attributes of its own to set
    }
    const bool isFile = S_ISREG(facts.st_mode);
    const mode_t mode = facts.st_mode & 07777;
    attributes &= storedAttributes;
    if (isFile && (mode & S_IWUSR) == 0) {
        // The extended attribute of a file can be changed only while the file may be written.
        chmod(text, mode | S_IWUSR);
    }
    // A failure shows when the attributes are read again.
    StoredFacts{attributes, StoredFacts::read(path.text).created}.write(path.text);
    markFolderOf(path.text, attributes);
    if (isFile && (attributes & FILE_ATTRIBUTE_READONLY) != 0) {
        chmod(text, mode & ~writeByAnyone);
    }
    const std::optional<FileFacts> written = readFacts(path);
    const std::uint32_t wanted = attributes | (hasLeadingDot(path.text) ? FILE_ATTRIBUTE_HIDDEN : 0);
    const bool done = written && ((wanted ^ written->attributes) & attributesThatMatter) == 0;
    if (!done && isFile) {
        chmod(text, mode);
    }
    return done;
}

} // namespace mox::host
