#include "host/files/wire_files.h"

#include "host/files/filesearch.h"
#include "host/files/filestatements.h"
#include "host/machine/machine.h"

#include <algorithm>
#include <limits>

namespace mox::host {

namespace {

using platform::Handle;
using platform::invalidHandle;
using platform::WIN32_FIND_DATAA;

Handle findFirst(Machine& machine, std::string_view pattern, WIN32_FIND_DATAA& found) {
    std::shared_ptr<FileSearch> search = machine.files.search(pattern);
    if (!search || !search->next(found)) {
        return invalidHandle;
    }
    const Handle handle = machine.handles.open("find", std::move(search));
    return handle != 0 ? handle : invalidHandle;
}

bool findNext(Machine& machine, Handle handle, WIN32_FIND_DATAA& found) {
    const std::shared_ptr<FileSearch> search = machine.handles.get<FileSearch>(handle);
    return search && search->next(found);
}

/// Text with a final NUL into a buffer. Gives the length without the NUL, or what is needed with it; 0 for no text.
std::uint32_t deliver(std::string_view text, std::span<char> buffer) {
    const auto length = static_cast<std::uint32_t>(text.size());
    if (text.empty() || text.size() >= buffer.size()) {
        return text.empty() ? 0 : length + 1;
    }
    *std::ranges::copy(text, buffer.begin()).out = '\0';
    return length;
}

/// Counts of 32 bits: on a large disk the clusters count as larger than they are.
bool diskFreeSpace(const Files& files, std::string_view root, std::uint32_t& sectorsPerCluster, std::uint32_t& bytesPerSector,
                   std::uint32_t& freeClusters, std::uint32_t& clusters) {
    constexpr std::uint64_t sector = 512;
    const std::optional<DriveSpace> space = files.space(root);
    if (!space) {
        return false;
    }
    std::uint64_t cluster = std::max(space->block, sector) / sector * sector;
    while (space->total / cluster > std::numeric_limits<std::uint32_t>::max()) {
        cluster *= 2;
    }
    sectorsPerCluster = static_cast<std::uint32_t>(cluster / sector);
    bytesPerSector = sector;
    freeClusters = static_cast<std::uint32_t>(space->available / cluster);
    clusters = static_cast<std::uint32_t>(space->total / cluster);
    return true;
}

} // namespace

void wireFiles(Machine& machine) {
    const Files& files = machine.files;

    platform::Kernel32& kernel32 = machine.kernel32;
    kernel32.FindFirstFileA = [&](auto pattern, auto& found) { return findFirst(machine, pattern, found); };
    kernel32.FindNextFileA = [&](auto search, auto& found) { return findNext(machine, search, found); };
    kernel32.FindClose = [&](auto search) { return machine.handles.close<FileSearch>(search); };
    kernel32.GetShortPathNameA = [&](auto path, auto buffer) { return deliver(files.shortPath(path), buffer); };
    kernel32.GetTempPathA = [&](auto buffer) { return deliver(files.temporaryFolder(), buffer); };
    kernel32.GetWindowsDirectoryA = [&](auto buffer) { return deliver(files.windowsFolder(), buffer); };
    kernel32.GetSystemDirectoryA = [&](auto buffer) { return deliver(files.systemFolder(), buffer); };
    kernel32.GetFileAttributesA = [&](auto path) {
        const std::optional<FileFacts> facts = files.facts(path);
        return facts ? facts->attributes : platform::INVALID_FILE_ATTRIBUTES;
    };
    kernel32.SetFileAttributesA = [&](auto path, auto attributes) { return files.setAttributes(path, attributes); };
    kernel32.GetDriveTypeA = [&](auto root) { return files.driveType(root); };
    kernel32.GetDiskFreeSpaceA = [&](auto root, auto& sectorsPerCluster, auto& bytesPerSector, auto& freeClusters,
                                     auto& clusters) {
        return diskFreeSpace(files, root, sectorsPerCluster, bytesPerSector, freeClusters, clusters);
    };

    platform::Runtime& runtime = machine.runtime;
    runtime.MkDir = [&](auto folder) { return makeFolder(files, folder); };
    runtime.Kill = [&](auto pattern) { return killFiles(files, pattern); };
    runtime.TouchBinary = [&](auto file) { return touchFile(files, file); };
}

} // namespace mox::host
