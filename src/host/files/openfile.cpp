#include "host/files/openfile.h"

#include "host/files/filefacts.h"
#include "host/files/filetimes.h"
#include "host/files/storedfacts.h"

#include "platform/kernel32.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cerrno>

namespace mox::host {

namespace {

using namespace platform;

constexpr mode_t newFile = 0666;

int flagsFor(const OpenRequest& request) noexcept {
    int flags = O_CLOEXEC | O_NOCTTY | O_NONBLOCK; // a pipe without a partner must not hold the caller up
    flags |= request.write ? (request.read ? O_RDWR : O_WRONLY) : O_RDONLY;
    flags |= request.create ? O_CREAT : 0;
    return flags | (request.mustBeNew ? O_EXCL : 0);
}

/// What the attributes of an existing file say against a request.
bool forbids(const DiskPath& path, const OpenRequest& request) {
    if (!request.write && !request.empty) {
        return false;
    }
    const std::uint32_t forbidding =
        FILE_ATTRIBUTE_READONLY | (request.empty ? FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM : 0);
    const std::optional<FileFacts> facts = readFacts(path);
    return facts && (facts->attributes & forbidding) != 0;
}

/// Calls `step` with the position and the rest of the bytes until all are through or it gives 0 or fails.
template <class Byte, class Step> int transfer(std::int64_t position, std::span<Byte> bytes, std::size_t& count, Step step) {
    for (count = 0; count < bytes.size();) {
        const ssize_t done = step(position + static_cast<std::int64_t>(count), bytes.subspan(count));
        if (done < 0 && errno == EINTR) {
            continue;
        }
        if (done <= 0) {
            return done < 0 ? errno : 0;
        }
        count += static_cast<std::size_t>(done);
    }
    return 0;
}

} // namespace

std::shared_ptr<OpenFile> OpenFile::open(FileSharing& sharing, const DiskPath& path, const OpenRequest& request, int& error) {
    const bool isForbidden = !request.mustBeNew && forbids(path, request);
    FileDescriptor file(isForbidden ? -1 : ::open(path.text.c_str(), flagsFor(request), newFile));
    struct stat facts {};
    if (!file || fstat(file.number(), &facts) != 0) {
        error = isForbidden ? EACCES : errno;
        return nullptr;
    }
    if (S_ISDIR(facts.st_mode)) {
        error = EISDIR;
        return nullptr;
    }
    const std::uint32_t access = (request.read ? FILE_SHARE_READ : 0) | (request.write ? FILE_SHARE_WRITE : 0);
    // Who only asks for facts has nothing to share.
    FileSharing::Claim claim = sharing.claim(FileIdentity::of(facts), access, access != 0 ? request.share : ~0u);
    if (!claim) {
        error = EBUSY;
        return nullptr;
    }
    if (request.empty && facts.st_size != 0 && ftruncate(file.number(), 0) != 0) {
        error = errno;
        return nullptr;
    }
    error = 0;
    return std::make_shared<OpenFile>(std::move(file), std::move(claim), request.write);
}

OpenFile::OpenFile(FileDescriptor file, FileSharing::Claim claim, bool mayWrite) noexcept
    : file_(std::move(file)), claim_(std::move(claim)), mayWrite_(mayWrite) {}

int OpenFile::size(std::int64_t& bytes) const {
    struct stat facts {};
    if (fstat(file_.number(), &facts) != 0) {
        return errno;
    }
    bytes = facts.st_size;
    return S_ISREG(facts.st_mode) ? 0 : ENODEV;
}

int OpenFile::read(std::int64_t position, std::span<char> bytes, std::size_t& count) const {
    return transfer(position, bytes, count,
                    [&](std::int64_t at, std::span<char> rest) { return pread(file_.number(), rest.data(), rest.size(), at); });
}

int OpenFile::write(std::int64_t position, std::span<const char> bytes) const {
    std::size_t count = 0;
    const int error = transfer(position, bytes, count, [&](std::int64_t at, std::span<const char> rest) {
        return pwrite(file_.number(), rest.data(), rest.size(), at);
    });
    return error == 0 && count < bytes.size() ? ENOSPC : error;
}

int OpenFile::setTimes(std::uint64_t created, std::uint64_t accessed, std::uint64_t written) const {
    const auto wanted = [](std::uint64_t time) {
        return time == 0 ? std::optional(timespec{0, UTIME_OMIT}) : systemTimeOf(time);
    };
    const std::optional<timespec> access = wanted(accessed);
    const std::optional<timespec> write = wanted(written);
    struct stat before {};
    if (!access || !write || !systemTimeOf(created)) {
        return EINVAL;
    }
    if (fstat(file_.number(), &before) != 0 || futimens(file_.number(), std::array{*access, *write}.data()) != 0) {
        return errno;
    }
    StoredFacts stored = StoredFacts::read(file_.number());
    if (created == 0 || stored.created == created) {
        return 0;
    }
    stored.attributes = stored.attributes.value_or(FILE_ATTRIBUTE_ARCHIVE);
    stored.created = created;
    if (!stored.write(file_.number()) && errno != ENOTSUP) {
        const int error = errno;
        futimens(file_.number(), std::array{before.st_atim, before.st_mtim}.data());
        return error;
    }
    return 0;
}

} // namespace mox::host
