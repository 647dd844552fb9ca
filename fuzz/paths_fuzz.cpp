// Random paths and patterns: none leads out of the folders of the drives, what a search finds can be named, and a short path
// leads to the same file.
#include "require.h"

#include "host/files/filesearch.h"
#include "host/machine/machine.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <string>

using namespace mox::host;
using namespace mox::platform;

namespace {

/// A machine whose drives hold some of everything; no drive is the root of the disk.
class World {
public:
    World() : disk_("mox-fuzz-") {
        const std::filesystem::path& disk = disk_.path();
        for (const char* folder : {"d/Folder/Sub Folder", "d/folder", "d/\xE8\xA1\xA8", "z"}) {
            std::filesystem::create_directories(disk / folder);
        }
        for (const char* file :
             {"d/readme.txt", "d/README.TXT", "d/long name of a file.html", "d/\xE6\x97\xA5\xE6\x9C\xAC.txt", "d/caf\xE9",
              "d/a\\b", "d/dots..", "d/.hidden", "d/Folder/x", "d/Folder/Sub Folder/y.z", "secret"}) {
            std::ofstream(disk / file).flush();
        }
        std::filesystem::create_symlink("..", disk / "d/Folder/up");
        std::filesystem::create_symlink("loop", disk / "d/loop");
        MachineConfig config;
        config.home = disk / "home";
        config.codePage = 932; // the hardest: the second byte of a character may be a backslash
        config.drives = {{'D', disk / "d"}, {'Z', disk / "z"}};
        machine_ = std::make_unique<Machine>(config);
    }

    Machine& machine() { return *machine_; }

    bool isOnDrive(const std::filesystem::path& path) const {
        return std::ranges::none_of(path, [](const auto& part) { return part == ".." || part == "."; }) &&
               std::ranges::any_of(machine_->files.drives(), [&](const auto& drive) {
                   return std::mismatch(drive.second.begin(), drive.second.end(), path.begin(), path.end()).first ==
                          drive.second.end();
               });
    }

private:
    TemporaryFolder disk_;
    std::unique_ptr<Machine> machine_;
};

World& world() {
    static World world;
    return world;
}

void checkPath(const Files& files, std::string_view path) {
    const std::optional<std::filesystem::path> place = files.resolve(path);
    if (!place) {
        return;
    }
    require(world().isOnDrive(*place));
    const std::string shortPath = files.shortPath(path);
    std::error_code error;
    require(shortPath.empty() != std::filesystem::exists(symlink_status(*place, error)));
    if (!shortPath.empty()) {
        const std::string drivePath = files.toDrivePath(*place);
        require(files.resolve(shortPath) && files.resolve(drivePath) == place);
        require(*files.resolve(shortPath) == *place);
    }
}

void checkSearch(Machine& machine, std::string_view pattern) {
    WIN32_FIND_DATAA found;
    const Handle search = machine.kernel32.FindFirstFileA(pattern, found);
    if (search == invalidHandle) {
        return;
    }
    do {
        const std::shared_ptr<FileSearch> state = machine.handles.get<FileSearch>(search);
        require(world().isOnDrive(state->path().text));
        require(!found.cFileName.empty() && found.cFileName.find('/') == std::string::npos);
        if (found.cFileName != "." && found.cFileName != "..") {
            require(machine.files.toDrivePath(state->path().text).ends_with(found.cFileName));
        }
    } while (machine.kernel32.FindNextFileA(search, found));
    require(machine.kernel32.FindClose(search));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Machine& machine = world().machine();
    const std::string text(reinterpret_cast<const char*>(data), size);
    // Most random bytes name no drive; so they come once more behind what does.
    for (const std::string& path : {text, "D:\\" + text, "D:\\Folder\\" + text}) {
        checkPath(machine.files, path);
        checkSearch(machine, path);
        machine.kernel32.GetFileAttributesA(path);
        machine.kernel32.GetDriveTypeA(path);
    }
    return 0;
}
