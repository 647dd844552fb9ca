#include "host/files/filefacts.h"

#include "platform/kernel32.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <string_view>

namespace mox::host {

namespace {

using namespace platform;

constexpr char attributeName[] = "user.DOSATTRIB";
constexpr std::uint32_t storedAttributes =
    FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_TEMPORARY;
constexpr std::uint32_t attributesThatMatter = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
constexpr mode_t writeByAnyone = S_IWUSR | S_IWGRP | S_IWOTH;

/// The contents of the extended attribute.
struct StoredFacts {
    std::optional<std::uint32_t> attributes;
    std::optional<std::uint64_t> created;
};

template <class Number> std::optional<Number> takeHexadecimal(std::string_view& text) {
    constexpr std::string_view prefix = "0x";
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    if (!text.starts_with(prefix)) {
        return std::nullopt;
    }
    Number number = 0;
    const auto [end, error] = std::from_chars(text.data() + prefix.size(), text.data() + text.size(), number, 16);
    if (error != std::errc()) {
        return std::nullopt;
    }
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return number;
}

StoredFacts readStored(const std::string& path) {
    std::array<char, 256> buffer;
    const ssize_t length = getxattr(path.c_str(), attributeName, buffer.data(), buffer.size());
    std::string_view text(buffer.data(), length > 0 ? static_cast<std::size_t>(length) : 0);
    StoredFacts stored;
    stored.attributes = takeHexadecimal<std::uint32_t>(text);
    if (stored.attributes) {
        stored.created = takeHexadecimal<std::uint64_t>(text);
    }
    return stored;
}

void writeStored(const std::string& path, std::uint32_t attributes, std::optional<std::uint64_t> created) {
    std::array<char, 64> text;
    int length = std::snprintf(text.data(), text.size(), "0x%x", static_cast<unsigned>(attributes));
    if (created) {
        length += std::snprintf(text.data() + length, text.size() - static_cast<std::size_t>(length), " 0x%llx",
                                static_cast<unsigned long long>(*created));
    }
    // A failure shows when the attributes are read again.
    setxattr(path.c_str(), attributeName, text.data(), static_cast<std::size_t>(length), 0);
}

std::uint64_t fileTime(const statx_timestamp& time) noexcept {
    constexpr std::int64_t secondsFrom1601To1970 = 11'644'473'600;
    constexpr std::int64_t ticksInSecond = 10'000'000;
    constexpr std::int64_t nanosecondsInTick = 100;
    const std::int64_t seconds = time.tv_sec + secondsFrom1601To1970;
    return seconds < 0 ? 0 : static_cast<std::uint64_t>(seconds * ticksInSecond + time.tv_nsec / nanosecondsInTick);
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

    const StoredFacts stored = isFile || result.folder ? readStored(path.text) : StoredFacts();
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
    writeStored(path.text, attributes, readStored(path.text).created);
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
