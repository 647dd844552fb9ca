#include "host/files/filestatements.h"

#include "host/files/filesearch.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>

namespace mox::host {

namespace {

// Run-time errors by their numbers.
constexpr std::int32_t badFileName = 52;
constexpr std::int32_t fileNotFound = 53;
constexpr std::int32_t deviceIoError = 57;
constexpr std::int32_t diskFull = 61;
constexpr std::int32_t tooManyFiles = 67;
constexpr std::int32_t deviceUnavailable = 68;
constexpr std::int32_t permissionDenied = 70;
constexpr std::int32_t pathFileAccessError = 75;
constexpr std::int32_t pathNotFound = 76;

struct SystemError {
    int system;
    std::int32_t runTime;
};
constexpr std::array systemErrors{
    SystemError{EBUSY, permissionDenied},   SystemError{EDQUOT, diskFull},          SystemError{EIO, deviceIoError},
    SystemError{EMFILE, tooManyFiles},      SystemError{ENAMETOOLONG, badFileName}, SystemError{ENFILE, tooManyFiles},
    SystemError{ENODEV, deviceUnavailable}, SystemError{ENOENT, pathNotFound},      SystemError{ENOSPC, diskFull},
    SystemError{ENOTDIR, pathNotFound},     SystemError{ENXIO, deviceUnavailable},  SystemError{EROFS, permissionDenied},
    SystemError{ETXTBSY, permissionDenied},
};

std::int32_t errorOfSystem() noexcept {
    const auto found = std::ranges::find(systemErrors, errno, &SystemError::system);
    return found == systemErrors.end() ? pathFileAccessError : found->runTime;
}

/// Why a path leads nowhere.
std::int32_t errorOfPath(const Files& files, std::string_view path) {
    if (path.find_first_of("*?\"<>|") != std::string_view::npos) {
        return badFileName;
    }
    return files.hasFolderOf(path) ? pathFileAccessError : pathNotFound;
}

bool isFileToDelete(const platform::WIN32_FIND_DATAA& found, const DiskPath& path) {
    constexpr std::uint32_t excluded =
        platform::FILE_ATTRIBUTE_DIRECTORY | platform::FILE_ATTRIBUTE_HIDDEN | platform::FILE_ATTRIBUTE_SYSTEM;
    return (found.dwFileAttributes & excluded) == 0 && !isFolderOnDisk(path.text);
}

} // namespace

std::int32_t makeFolder(const Files& files, std::string_view folder) {
    const std::optional<std::filesystem::path> path = files.resolve(folder);
    if (!path) {
        return errorOfPath(files, folder);
    }
    return mkdir(path->c_str(), 0777) == 0 ? 0 : errorOfSystem();
}

std::int32_t killFiles(const Files& files, std::string_view pattern) {
    const std::shared_ptr<FileSearch> search = files.search(pattern);
    if (!search) {
        return files.hasFolderOf(pattern) ? fileNotFound : pathNotFound;
    }
    std::int32_t result = fileNotFound;
    for (platform::WIN32_FIND_DATAA found; search->next(found);) {
        const DiskPath& path = search->path();
        if (!isFileToDelete(found, path)) {
            continue;
        }
        if ((found.dwFileAttributes & platform::FILE_ATTRIBUTE_READONLY) != 0) {
            return pathFileAccessError;
        }
        if (unlink(path.text.c_str()) == 0) {
            result = 0;
        } else if (errno != ENOENT) {
            return errorOfSystem();
        }
    }
    return result;
}

std::int32_t touchFile(const Files& files, std::string_view file) {
    const std::optional<std::filesystem::path> path = files.resolveFile(file);
    if (!path) {
        return errorOfPath(files, file);
    }
    constexpr int flags = O_CLOEXEC | O_NOCTTY | O_NONBLOCK; // a pipe without a reader must not hold the caller up
    int opened = open(path->c_str(), O_RDWR | O_CREAT | flags, 0666);
    if (opened < 0 && (errno == EACCES || errno == EROFS)) {
        opened = open(path->c_str(), O_RDONLY | flags);
    }
    if (opened < 0) {
        return errorOfSystem();
    }
    close(opened);
    return 0;
}

} // namespace mox::host
