#include "host/pictures/wholefile.h"

#include "host/files/filedescriptor.h"
#include "host/files/filestatements.h"
#include "host/files/pendingfile.h"
#include "host/files/runtimeerrors.h"
#include "host/pictures/imagelimits.h"

#include "platform/kernel32.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>

namespace mox::host {

namespace {

constexpr std::int32_t outOfMemory = 7;

/// Reads or writes until all is done; the reason in `errno` if it is not.
template <class Bytes, class Transfer> bool transferAll(Bytes bytes, Transfer transfer) {
    while (!bytes.empty()) {
        const ssize_t done = transfer(bytes.data(), bytes.size());
        if (done < 0 && errno == EINTR) {
            continue;
        }
        if (done <= 0) {
            errno = done == 0 ? EIO : errno; // the file has become shorter
            return false;
        }
        bytes = bytes.subspan(static_cast<std::size_t>(done));
    }
    return true;
}

/// What a file that is there says against being replaced; 0 if nothing.
std::int32_t objectionOf(const Files& files, const struct stat& facts, const std::string& path) {
    constexpr std::uint32_t any = platform::FILE_SHARE_READ | platform::FILE_SHARE_WRITE | platform::FILE_SHARE_DELETE;
    if (!S_ISREG(facts.st_mode) || access(path.c_str(), W_OK) != 0) {
        return pathFileAccessError;
    }
    return files.sharing().permits(FileIdentity::of(facts), platform::FILE_SHARE_DELETE, any) ? 0 : permissionDenied;
}

} // namespace

std::int32_t readWholeFile(const Files& files, std::string_view path, std::vector<std::byte>& contents) {
    const std::optional<std::filesystem::path> place = files.resolveFile(path);
    if (!place) {
        return errorOfPath(files, path);
    }
    const FileDescriptor file(open(place->c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK));
    if (!file) {
        return errno == ENOENT ? fileNotFound : runtimeErrorOf(errno);
    }
    struct stat facts {};
    if (fstat(file.number(), &facts) != 0 || !S_ISREG(facts.st_mode)) {
        return pathFileAccessError;
    }
    if (static_cast<std::uint64_t>(facts.st_size) > mostImageBytes) {
        return outOfMemory;
    }
    contents.resize(static_cast<std::size_t>(facts.st_size));
    const bool isRead =
        transferAll(std::span(contents), [&](std::byte* bytes, std::size_t size) { return read(file.number(), bytes, size); });
    return isRead ? 0 : runtimeErrorOf(errno);
}

std::int32_t writeWholeFile(const Files& files, std::string_view path, std::span<const std::byte> contents) {
    const std::optional<std::filesystem::path> place = files.resolveFile(path);
    if (!place) {
        return errorOfPath(files, path);
    }
    // Through a link, the file behind it is replaced.
    std::error_code error;
    const std::filesystem::path real = std::filesystem::canonical(*place, error);
    const std::string target = error ? place->native() : real.native();
    struct stat facts {};
    const bool exists = stat(target.c_str(), &facts) == 0;
    if (const std::int32_t objection = exists ? objectionOf(files, facts, target) : 0; objection != 0) {
        return objection;
    }
    PendingFile file(target, exists ? facts.st_mode & 07777 : 0666);
    const bool isDone =
        file &&
        transferAll(contents, [&](const std::byte* bytes, std::size_t size) { return write(file.number(), bytes, size); }) &&
        (!exists || fchmod(file.number(), facts.st_mode & 07777) == 0) && file.complete(true);
    return isDone ? 0 : runtimeErrorOf(errno);
}

} // namespace mox::host
