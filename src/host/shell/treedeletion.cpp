#include "host/shell/treedeletion.h"

#include "host/files/filedescriptor.h"
#include "host/files/folder.h"
#include "host/shell/operationend.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <memory>

namespace mox::host {

namespace {

constexpr int folderFlags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;

struct CloseFolder {
    void operator()(DIR* folder) const noexcept { closedir(folder); }
};

/// By descriptors of folders: whatever happens to the paths meanwhile, nothing outside of the tree is touched.
class TreeDeletion {
public:
    TreeDeletion(dev_t disk, const TreeStep& before) : disk_(disk), before_(before) {}

    void remove(int parent, const std::string& name, const std::string& path) const {
        before_(path);
        struct stat facts {};
        if (fstatat(parent, name.c_str(), &facts, AT_SYMLINK_NOFOLLOW) != 0) {
            endWithErrno(path);
        }
        if (S_ISDIR(facts.st_mode)) {
            empty(parent, name, path);
        }
        if (unlinkat(parent, name.c_str(), S_ISDIR(facts.st_mode) ? AT_REMOVEDIR : 0) != 0) {
            endWithErrno(path);
        }
    }

private:
    void empty(int parent, const std::string& name, const std::string& path) const {
        const FileDescriptor folder(openat(parent, name.c_str(), folderFlags));
        struct stat facts {};
        if (!folder || fstat(folder.number(), &facts) != 0) {
            endWithErrno(path);
        }
        if (facts.st_dev != disk_) {
            errno = EBUSY;
            endWithErrno(path);
        }
        for (const std::string& child : names(folder.number(), path)) {
            remove(folder.number(), child, joined(path, child));
        }
    }

    static std::vector<std::string> names(int folder, const std::string& path) {
        FileDescriptor copy(fcntl(folder, F_DUPFD_CLOEXEC, 0));
        const std::unique_ptr<DIR, CloseFolder> stream(copy ? fdopendir(copy.number()) : nullptr);
        if (!stream) {
            endWithErrno(path);
        }
        copy.release();
        std::vector<std::string> result;
        while (const dirent* entry = readdir(stream.get())) {
            const std::string_view name = entry->d_name;
            if (name != "." && name != "..") {
                result.emplace_back(name);
            }
        }
        return result;
    }

    dev_t disk_;
    const TreeStep& before_;
};

} // namespace

void deleteTree(const std::string& path, const TreeStep& before) {
    const FileDescriptor parent(open(parentOf(path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_PATH));
    struct stat facts {};
    if (!parent || fstat(parent.number(), &facts) != 0) {
        endWithErrno(path);
    }
    TreeDeletion(facts.st_dev, before).remove(parent.number(), nameOf(path), path);
}

} // namespace mox::host
