#include "host/files/filecontents.h"

#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <vector>

namespace mox::host {

namespace {

/// Writes all bytes at a position.
bool writeAll(int to, const char* bytes, std::size_t count, off_t position) {
    while (count > 0) {
        const ssize_t written = pwrite(to, bytes, count, position);
        if (written < 0 && errno == EINTR) {
            continue;
        }
        if (written <= 0) {
            return false;
        }
        bytes += written;
        position += written;
        count -= static_cast<std::size_t>(written);
    }
    return true;
}

/// Copies from one position to another, by reading and writing; ends with the file if that comes first.
bool copyByBuffer(int from, int to, off_t position, off_t end) {
    constexpr off_t blockSize = off_t{1} << 18;
    std::vector<char> block(static_cast<std::size_t>(blockSize));
    while (position < end) {
        const ssize_t count = pread(from, block.data(), static_cast<std::size_t>(std::min(blockSize, end - position)), position);
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count <= 0) {
            return count == 0;
        }
        if (!writeAll(to, block.data(), static_cast<std::size_t>(count), position)) {
            return false;
        }
        position += count;
    }
    return true;
}

bool isNotSupported(int error) noexcept {
    return error == EXDEV || error == EINVAL || error == ENOSYS || error == EOPNOTSUPP || error == EBADF || error == EPERM;
}

bool copyRange(int from, int to, off_t position, off_t end) {
    constexpr off_t longest = off_t{1} << 30;
    while (position < end) {
        off_t source = position;
        off_t target = position;
        const auto length = static_cast<std::size_t>(std::min(longest, end - position));
        const ssize_t count = copy_file_range(from, &source, to, &target, length, 0);
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count < 0 && !isNotSupported(errno)) {
            return false;
        }
        if (count <= 0) {
            return copyByBuffer(from, to, position, end); // some systems of files say 0 where they should refuse
        }
        position += count;
    }
    return true;
}

} // namespace

bool copyContents(int from, int to) {
    struct stat facts {};
    if (fstat(from, &facts) != 0) {
        return false;
    }
    if (facts.st_size == 0) {
        // Files that the system makes up when they are read have no size.
        return copyByBuffer(from, to, 0, INT64_MAX);
    }
    if (ioctl(to, FICLONE, from) == 0) {
        return true;
    }
    for (off_t position = 0; position < facts.st_size;) {
        const off_t data = lseek(from, position, SEEK_DATA);
        const off_t hole = data < 0 ? -1 : lseek(from, data, SEEK_HOLE);
        if (data < 0 && errno == ENXIO) {
            break;
        }
        const off_t begin = data < 0 ? position : data;
        const off_t end = hole < 0 ? facts.st_size : std::min(hole, facts.st_size);
        if (!copyRange(from, to, begin, end)) {
            return false;
        }
        position = std::max(end, begin);
        if (begin >= end) {
            break; // the file has become shorter meanwhile
        }
    }
    struct stat copy {};
    return fstat(to, &copy) == 0 && (copy.st_size >= facts.st_size || ftruncate(to, facts.st_size) == 0);
}

} // namespace mox::host
