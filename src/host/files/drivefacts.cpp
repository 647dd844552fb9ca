#include "host/files/drivefacts.h"

#include "host/files/folder.h"

#include "platform/kernel32.h"

#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/statfs.h>
#include <sys/statvfs.h>
#include <sys/sysmacros.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <string>

namespace mox::host {

namespace {

// Of file systems whose numbers the system's header does not have.
constexpr std::int64_t udfMagic = 0x15013346;

struct KnownFileSystem {
    std::int64_t magic;
    std::uint32_t driveType;
};
constexpr std::array knownFileSystems{
    KnownFileSystem{AFS_SUPER_MAGIC, platform::DRIVE_REMOTE},  KnownFileSystem{CIFS_SUPER_MAGIC, platform::DRIVE_REMOTE},
    KnownFileSystem{CODA_SUPER_MAGIC, platform::DRIVE_REMOTE}, KnownFileSystem{FUSE_SUPER_MAGIC, platform::DRIVE_REMOTE},
    KnownFileSystem{NCP_SUPER_MAGIC, platform::DRIVE_REMOTE},  KnownFileSystem{NFS_SUPER_MAGIC, platform::DRIVE_REMOTE},
    KnownFileSystem{SMB_SUPER_MAGIC, platform::DRIVE_REMOTE},  KnownFileSystem{SMB2_SUPER_MAGIC, platform::DRIVE_REMOTE},
    KnownFileSystem{V9FS_MAGIC, platform::DRIVE_REMOTE},       KnownFileSystem{ISOFS_SUPER_MAGIC, platform::DRIVE_CDROM},
    KnownFileSystem{udfMagic, platform::DRIVE_CDROM},          KnownFileSystem{RAMFS_MAGIC, platform::DRIVE_RAMDISK},
    KnownFileSystem{TMPFS_MAGIC, platform::DRIVE_RAMDISK},
};

/// True if the kernel calls the disk of a block device removable; of a partition its disk counts.
bool isRemovable(dev_t device) {
    const std::string folder = "/sys/dev/block/" + std::to_string(major(device)) + ":" + std::to_string(minor(device));
    for (const char* name : {"/removable", "/../removable"}) {
        if (std::ifstream file(folder + name); file) {
            return file.get() == '1';
        }
    }
    return false;
}

} // namespace

std::optional<DriveSpace> spaceOf(const std::filesystem::path& folder) {
    struct statvfs facts {};
    if (!isFolderOnDisk(folder.native()) || statvfs(folder.c_str(), &facts) != 0) {
        return std::nullopt;
    }
    const std::uint64_t block = facts.f_frsize != 0 ? facts.f_frsize : facts.f_bsize;
    return DriveSpace{facts.f_bavail * block, facts.f_blocks * block, facts.f_bfree * block, block};
}

std::uint32_t driveTypeOf(const std::filesystem::path& folder) {
    struct stat file {};
    struct statfs disk {};
    if (stat(folder.c_str(), &file) != 0 || !S_ISDIR(file.st_mode) || statfs(folder.c_str(), &disk) != 0) {
        return platform::DRIVE_NO_ROOT_DIR;
    }
    const auto known = std::ranges::find(knownFileSystems, static_cast<std::int64_t>(disk.f_type), &KnownFileSystem::magic);
    // Drivers in user space serve networks mostly, but disks too: then with the number of a device.
    const bool isLocalDriver = disk.f_type == FUSE_SUPER_MAGIC && major(file.st_dev) != 0;
    if (known != knownFileSystems.end() && !isLocalDriver) {
        return known->driveType;
    }
    return isRemovable(file.st_dev) ? platform::DRIVE_REMOVABLE : platform::DRIVE_FIXED;
}

} // namespace mox::host
