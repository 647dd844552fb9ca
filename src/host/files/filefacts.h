// What the disk knows of a file: kind, size, times, attributes.
#pragma once

#include "host/files/folder.h"

#include <cstdint>
#include <optional>

namespace mox::host {

/// Attributes and times of files, as the find functions report them.
///
/// Attributes and the time of creation live in the extended attribute `user.DOSATTRIB`: the attribute bits in hexadecimal with
/// `0x` in front, and after a blank the time of creation in the same form, in 100 nanoseconds since 1601-01-01 UTC. The time may
/// be missing; what follows is left alone by readers. `0x22` is a hidden file with the archive bit. A file without it has the
/// archive bit, a folder none. In addition a file that its owner may not write is read-only, a name with a leading dot is hidden,
/// and what is no file and no folder (a device, a pipe) belongs to the system. A link shows what it leads to, with the bit of a
/// link; one that leads nowhere, or to a folder that it lies in, shows itself. On a disk without extended attributes only these
/// rules are left.
struct FileFacts {
    bool folder = false;
    std::uint32_t attributes = 0;
    std::uint64_t size = 0;
    // 100 nanoseconds since 1601-01-01 UTC.
    std::uint64_t created = 0;
    std::uint64_t accessed = 0;
    std::uint64_t written = 0;
};

/// The facts of a file; nothing if there is none.
std::optional<FileFacts> readFacts(const DiskPath& path);

/// Sets the attributes of a file, the read-only bit also as permission bits of a file. False if the disk does not keep a bit that
/// matters to other programs: read-only, hidden, system.
bool writeAttributes(const DiskPath& path, std::uint32_t attributes);

} // namespace mox::host
