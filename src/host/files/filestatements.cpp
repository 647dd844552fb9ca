#include "host/files/filestatements.h"

#include "host/files/filesearch.h"
#include "host/files/runtimeerrors.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace mox::host {

namespace {

std::int32_t errorOfSystem() noexcept {
    return runtimeErrorOf(errno);
}

/// Why an opener of this machine keeps a file from being deleted; 0 if none does.
std::int32_t errorOfOpeners(const Files& files, const DiskPath& path) {
    struct stat facts {};
    constexpr std::uint32_t any = platform::FILE_SHARE_READ | platform::FILE_SHARE_WRITE | platform::FILE_SHARE_DELETE;
    const bool isFree = lstat(path.text.c_str(), &facts) != 0 ||
                        files.sharing().permits(FileIdentity::of(facts), platform::FILE_SHARE_DELETE, any);
    return isFree ? 0 : fileAlreadyOpen;
}

bool isFileToDelete(const platform::WIN32_FIND_DATAA& found, const DiskPath& path) {
    constexpr std::uint32_t excluded =
        platform::FILE_ATTRIBUTE_DIRECTORY | platform::FILE_ATTRIBUTE_HIDDEN | platform::FILE_ATTRIBUTE_SYSTEM;
    return (found.dwFileAttributes & excluded) == 0 && !isFolderOnDisk(path.text);
}

} // namespace

std::int32_t errorOfPath(const Files& files, std::string_view path) {
    if (path.substr(0, path.find('\0')).find_first_of("*?\"<>|") != std::string_view::npos) {
        return badFileName;
    }
    return files.hasFolderOf(path) ? pathFileAccessError : pathNotFound;
}

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
        const DiskPath path = search->path();
        if (!isFileToDelete(found, path)) {
            continue;
        }
        if ((found.dwFileAttributes & platform::FILE_ATTRIBUTE_READONLY) != 0) {
            return pathFileAccessError;
        }
        if (const std::int32_t error = errorOfOpeners(files, path); error != 0) {
            return error;
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
