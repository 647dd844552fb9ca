#include "host/shell/trash.h"

#include "host/files/filedescriptor.h"
#include "host/files/folder.h"
#include "host/shell/entrycopy.h"
#include "host/shell/gio.h"

#include <gio/gio.h>

#include <fcntl.h>
#include <sys/stat.h>

#include <optional>

namespace mox::host {

namespace {

bool takeToDesktop(const std::string& path) {
    // The local file system itself: no daemon and no session bus are needed.
    const GObjectHolder<GFile> file(g_vfs_get_file_for_path(g_vfs_get_local(), path.c_str()));
    return g_file_trash(file.get(), nullptr, nullptr) != FALSE;
}

/// Where a deleted file was and when it was deleted, as the desktop's trash has it.
std::string describe(const std::string& path) {
    const GText escaped(g_uri_escape_string(path.c_str(), "/", FALSE));
    const std::unique_ptr<GDateTime, decltype(&g_date_time_unref)> now(g_date_time_new_now_local(), &g_date_time_unref);
    const GText date(now ? g_date_time_format(now.get(), "%Y-%m-%dT%H:%M:%S") : nullptr);
    return std::string("[Trash Info]\nPath=") + escaped.get() + "\nDeletionDate=" + (date ? date.get() : "") + "\n";
}

bool makePrivateFolders(const std::filesystem::path& folder) {
    std::error_code error;
    std::filesystem::create_directories(folder.parent_path(), error);
    return mkdir(folder.c_str(), 0700) == 0 || isFolderOnDisk(folder.native());
}

/// Takes a free name in the trash by making its description there.
std::optional<std::string> takeName(const std::filesystem::path& info, const std::string& path) {
    const std::string name = nameOf(path);
    for (int number = 1; number < 1'000'000; ++number) {
        const std::string candidate = number == 1 ? name : name + "." + std::to_string(number);
        const std::filesystem::path file = info / (candidate + ".trashinfo");
        const FileDescriptor made(open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
        if (made) {
            const std::string text = describe(path);
            if (write(made.number(), text.data(), text.size()) == static_cast<ssize_t>(text.size())) {
                return candidate;
            }
            unlink(file.c_str());
            return std::nullopt;
        }
        if (errno != EEXIST) {
            return std::nullopt;
        }
    }
    return std::nullopt;
}

} // namespace

bool Trash::take(const std::string& path) const {
    return folder_.empty() ? takeToDesktop(path) : takeIntoFolder(path);
}

bool Trash::takeIntoFolder(const std::string& path) const {
    const std::filesystem::path files = folder_ / "files";
    const std::filesystem::path info = folder_ / "info";
    if (!makePrivateFolders(folder_) || !makePrivateFolders(files) || !makePrivateFolders(info)) {
        return false;
    }
    const std::optional<std::string> name = takeName(info, path);
    if (!name) {
        return false;
    }
    if (!renameEntry(path, files / *name, false)) {
        unlink((info / (*name + ".trashinfo")).c_str());
        return false;
    }
    return true;
}

} // namespace mox::host
