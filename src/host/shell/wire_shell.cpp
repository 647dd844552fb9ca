#include "host/shell/wire_shell.h"

#include "host/machine/machine.h"
#include "host/shell/fileinfo.h"
#include "host/shell/fileoperation.h"
#include "host/shell/findexecutable.h"
#include "host/shell/gio.h"

namespace mox::host {

namespace {

bool diskFreeSpace(const Files& files, std::string_view folder, std::uint64_t& available, std::uint64_t& total,
                   std::uint64_t& free) {
    const std::optional<DriveSpace> space = files.space(folder);
    if (space) {
        available = space->available;
        total = space->total;
        free = space->free;
    }
    return space.has_value();
}

/// That of the machine, else the desktop's.
std::filesystem::path trashFolder(const MachineConfig& config) {
    return config.trash.empty() ? std::filesystem::path(g_get_user_data_dir()) / "Trash" : config.trash;
}

} // namespace

void wireShell(Machine& machine) {
    const Files& files = machine.files;
    platform::Shell32& shell32 = machine.shell32;
    shell32.FindExecutableA = [&](auto file, auto folder, auto result) { return findExecutable(files, file, folder, result); };
    shell32.SHGetDiskFreeSpaceA = [&](auto folder, auto& available, auto& total, auto& free) {
        return diskFreeSpace(files, folder, available, total, free);
    };
    shell32.SHFileOperationA = [&](auto& operation) {
        const Trash trash(machine.config().trash);
        return FileOperation(files, machine.codePage, machine.dialogs, trash, operation).run();
    };
    const ShellSources sources{files, machine.codePage, machine.shellIcons, trashFolder(machine.config())};
    shell32.SHGetFileInfoA = [sources](auto file, auto, auto& info, auto flags) { return fileInfo(sources, file, info, flags); };
}

} // namespace mox::host
