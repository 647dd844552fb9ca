#include "host/files/filecopy.h"

#include "host/files/filecontents.h"
#include "host/files/filefacts.h"
#include "host/files/foldermark.h"
#include "host/files/pendingfile.h"
#include "host/files/storedfacts.h"

#include "platform/kernel32.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <memory>

namespace mox::host {

namespace {

using namespace platform;

constexpr std::uint32_t shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// The source of a copy: an open plain file.
struct Source {
    FileDescriptor file;
    struct stat facts {};
    FileSharing::Claim claim;
};

std::optional<Source> openSource(const Files& files, const std::string& path) {
    Source source;
    source.file = FileDescriptor(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK));
    if (!source.file || fstat(source.file.number(), &source.facts) != 0 || !S_ISREG(source.facts.st_mode)) {
        return std::nullopt;
    }
    source.claim = files.sharing().claim(FileIdentity::of(source.facts), FILE_SHARE_READ, shareAll);
    return source.claim ? std::optional<Source>(std::move(source)) : std::nullopt;
}

/// Where the file lies that a path leads to by links.
std::string realPath(const std::string& path) {
    const std::unique_ptr<char, decltype(&std::free)> real(realpath(path.c_str(), nullptr), &std::free);
    return real ? real.get() : path;
}

/// True if a copy may take the place of what is there.
bool mayReplace(const Files& files, const DiskPath& target, const struct stat& source) {
    constexpr std::uint32_t forbidding = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_DIRECTORY;
    struct stat facts {};
    const std::optional<FileFacts> known = readFacts(target);
    return known && (known->attributes & forbidding) == 0 && stat(target.text.c_str(), &facts) == 0 && S_ISREG(facts.st_mode) &&
           FileIdentity::of(facts) != FileIdentity::of(source) &&
           files.sharing().permits(FileIdentity::of(facts), FILE_SHARE_WRITE, 0);
}

/// Brings attributes and the time of the last change from one open file to another, which is to lie at `target`.
bool copyFacts(const Source& source, int copy, const std::string& target, bool withCreationTime) {
    constexpr mode_t writeByAnyone = S_IWUSR | S_IWGRP | S_IWOTH;
    StoredFacts stored = StoredFacts::read(source.file.number());
    if (!withCreationTime) {
        stored.created.reset();
    }
    if (!stored.write(copy) && errno != ENOTSUP) {
        return false;
    }
    struct stat facts {};
    if ((source.facts.st_mode & S_IWUSR) == 0 &&
        (fstat(copy, &facts) != 0 || fchmod(copy, facts.st_mode & 07777 & ~writeByAnyone) != 0)) {
        return false;
    }
    markFolderOf(target, stored.attributes.value_or(0));
    const std::array times{timespec{0, UTIME_OMIT}, source.facts.st_mtim};
    return futimens(copy, times.data()) == 0;
}

/// Copies to a path on disk.
bool copyTo(const Source& source, const std::string& target, bool replace, bool withCreationTime) {
    constexpr mode_t permissions = 0777;
    PendingFile copy(target, source.facts.st_mode & permissions);
    return copy && copyContents(source.file.number(), copy.number()) &&
           copyFacts(source, copy.number(), target, withCreationTime) && copy.complete(replace);
}

/// True if the name of a new file is one that the disk can have.
bool isPossible(const std::string& path) {
    struct stat facts {};
    return lstat(path.c_str(), &facts) == 0 || errno == ENOENT;
}

/// True if no opener keeps something from being moved.
bool mayMove(const Files& files, const DiskPath& path) {
    struct stat facts {};
    return lstat(path.text.c_str(), &facts) == 0 && files.sharing().permits(FileIdentity::of(facts), FILE_SHARE_DELETE, shareAll);
}

bool moveToOtherDisk(const Files& files, const std::string& from, const std::string& to) {
    struct stat facts {};
    if (lstat(from.c_str(), &facts) != 0 || !S_ISREG(facts.st_mode)) {
        return false;
    }
    const std::optional<Source> source = openSource(files, from);
    if (!source || !copyTo(*source, to, false, true)) {
        return false;
    }
    unlink(from.c_str());
    return true;
}

} // namespace

bool copyFile(const Files& files, std::string_view from, std::string_view to, bool failIfExists) {
    const std::optional<DiskPath> original = files.placeOfFile(from);
    const std::optional<DiskPath> target = files.placeOfFile(to);
    const std::optional<Source> source = original ? openSource(files, original->text) : std::nullopt;
    if (!source || !target || !isPossible(target->text)) {
        return false;
    }
    if (!existsOnDisk(target->text)) {
        return copyTo(*source, target->text, !failIfExists, false);
    }
    return !failIfExists && mayReplace(files, *target, source->facts) && copyTo(*source, realPath(target->text), true, false);
}

bool moveFile(const Files& files, std::string_view from, std::string_view to) {
    const std::optional<Files::NewName> original = files.newName(from);
    const std::optional<Files::NewName> target = files.newName(to);
    if (!original || !original->existing || !target || !mayMove(files, *original->existing)) {
        return false;
    }
    const std::string& source = original->existing->text;
    if (target->existing && target->existing->text != source) {
        return false;
    }
    if (target->written.text == source) {
        return true;
    }
    markFolderOf(target->written.text, StoredFacts::read(source).attributes.value_or(0));
    return renameWithoutReplacing(source, target->written.text) ||
           (errno == EXDEV && moveToOtherDisk(files, source, target->written.text));
}

} // namespace mox::host
