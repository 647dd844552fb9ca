// The file system as programs of the library see it: drives, backslashes, names without regard to case.
#pragma once

#include "automation/objects/export.h"
#include "host/files/drivefacts.h"
#include "host/files/drivepath.h"
#include "host/files/filefacts.h"
#include "host/files/filesharing.h"
#include "host/files/folder.h"
#include "host/files/foldercache.h"
#include "host/machine/machineconfig.h"
#include "host/text/codepage.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

namespace mox::host {

class FileSearch;

/// Drives that stand for folders of this machine, and paths into them. Paths come in and go out as bytes of the code page, and
/// come in up to their first NUL. Both slashes separate; a path without a drive continues the current folder. ".." ends at the
/// root of a drive, and a name means the very same
/// one if there is one, else what `findOtherName` finds.
///
/// `C:` is the folder `drives/C` of the mox home, with the standard folders of the system and the user, made when the drive is
/// first used; `Z:` is the root of the disk. The configuration adds drives and may put others in the place of these.
class MOX_API Files {
public:
    /// Throws `std::invalid_argument` for a drive whose name is no letter.
    Files(const MachineConfig& config, const CodePage& codePage);
    ~Files();

    /// The folder behind each drive letter (upper case).
    const std::map<char, std::filesystem::path>& drives() const noexcept { return drives_; }

    /// Where a path leads on disk, each name found without regard to case. A last part that does not exist is kept as written but
    /// for dots and blanks at its end; empty if an earlier part does not exist, is no folder, or the path names no drive. A path
    /// with wildcards, and one to a file with a separator behind it, lead nowhere.
    std::optional<std::filesystem::path> resolve(std::string_view path) const;
    /// An existing file or folder.
    std::optional<DiskPath> find(std::string_view path) const;
    /// A path taken apart, with the current folder in front of a relative one.
    std::optional<DrivePath> parse(std::string_view path) const;
    /// As `resolve`, for what cannot be a folder: a path with a separator at its end leads nowhere.
    std::optional<std::filesystem::path> resolveFile(std::string_view path) const;
    /// As `resolveFile`, as a path on disk.
    std::optional<DiskPath> placeOfFile(std::string_view path) const;
    /// Where a new name leads: what is there now, which may be written in another case or not exist, and the place with the name
    /// as it is written. Nothing for what `resolve` does not resolve, and for the root of a drive.
    struct NewName {
        std::optional<DiskPath> existing;
        DiskPath written;
    };
    std::optional<NewName> newName(std::string_view path) const;
    /// The path of a file on disk on the drive whose folder lies closest to it; empty if no drive reaches it. Names that the code
    /// page does not hold appear as short names.
    std::string toDrivePath(const std::filesystem::path& path) const;

    /// The folder that relative paths continue: the root of `C:` at first. False, and nothing changes, for what is no folder.
    bool setCurrentFolder(std::string_view path);
    /// The folder for temporary files, `C:\Temp\`.
    std::string temporaryFolder() const;

    /// The folders of the system, without a separator at the end.
    std::string windowsFolder() const;
    std::string systemFolder() const;
    /// The openers of files of this machine.
    FileSharing& sharing() const noexcept { return *sharing_; }

    /// Begins a search for the names that match the last part of `pattern`; null if its folder does not exist or nothing has that
    /// name. A plain name is searched like a pattern. The root of a drive and a path with a separator at its end have no last
    /// part.
    std::shared_ptr<FileSearch> search(std::string_view pattern) const;
    /// True if the folder that a search for `pattern` looks into exists.
    bool hasFolderOf(std::string_view pattern) const;

    /// The facts of a file or folder; nothing if it does not exist.
    std::optional<FileFacts> facts(std::string_view path) const;
    bool setAttributes(std::string_view path, std::uint32_t attributes) const;
    /// The path of an existing file with every name in its short form, relative to the current folder if it was so; empty if the
    /// file does not exist.
    std::string shortPath(std::string_view path) const;
    /// The kind of the drive whose root a text names, also as a bare "C:", as a `DRIVE_` constant. `C:` and the root of the disk
    /// are always fixed; `DRIVE_NO_ROOT_DIR` for another path and a drive that does not exist.
    std::uint32_t driveType(std::string_view root) const;
    /// The space around an existing folder.
    std::optional<DriveSpace> space(std::string_view folder) const;

private:
    /// Where a path leads; the last name may be missing on disk, those in front of it not.
    struct Location {
        DiskPath path;
        bool exists = false;
    };

    std::optional<DiskPath> rootOf(char drive) const;
    /// A path on disk with all names as they are written.
    std::optional<DiskPath> exactly(const DrivePath& path) const;
    /// The name in a folder on disk that a name means, empty if there is none. Nothing if the folder cannot be read.
    std::optional<std::string> findName(const std::string& folder, std::string_view name) const;
    std::optional<Location> locate(const DrivePath& path) const;
    std::optional<Location> locate(std::string_view path) const;
    /// The existing folder in front of the last name.
    std::optional<DiskPath> folderOf(DrivePath path) const;
    DrivePath currentFolder() const;

    std::map<char, std::filesystem::path> drives_;
    const CodePage& codePage_;
    const std::shared_ptr<FileSharing> sharing_ = std::make_shared<FileSharing>();
    mutable FolderCache folders_;
    mutable std::once_flag standardFolders_;
    mutable std::mutex currentFolderGuard_;
    DrivePath currentFolder_;
};

} // namespace mox::host
