#include "host/files/standardfolders.h"

#include "host/files/names.h"

#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <array>

namespace mox::host {

namespace {

constexpr const char* systemFolders[] = {
    "Program Files/Common Files", "Temp", "Windows/Fonts", "Windows/System32", "Windows/Temp",
};
constexpr const char* commonFolders[] = {
    "ProgramData/Microsoft/Windows/Start Menu/Programs",
    "ProgramData/Microsoft/Windows/Templates",
    "Users/Public/Desktop",
    "Users/Public/Documents",
    "Users/Public/Music",
    "Users/Public/Pictures",
    "Users/Public/Videos",
};
constexpr const char* userFolders[] = {
    "AppData/Local/Temp",
    "AppData/Roaming/Microsoft/Windows/Start Menu/Programs",
    "AppData/Roaming/Microsoft/Windows/Templates",
    "Desktop",
    "Documents",
    "Downloads",
    "Music",
    "Pictures",
    "Videos",
};

} // namespace

std::string nameOfUser() {
    passwd entry{};
    passwd* found = nullptr;
    std::array<char, 4096> buffer{};
    if (getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found) != 0 || !found) {
        return "user";
    }
    std::string name = found->pw_name;
    std::ranges::replace_if(name, isReserved, '_');
    return name.empty() ? "user" : name;
}

void makeStandardFolders(const std::filesystem::path& drive) {
    std::error_code ignored;
    const auto make = [&](const std::filesystem::path& parent, const auto& folders) {
        for (const char* folder : folders) {
            std::filesystem::create_directories(parent / folder, ignored);
        }
    };
    make(drive, systemFolders);
    make(drive, commonFolders);
    make(drive / "Users" / nameOfUser(), userFolders);
}

} // namespace mox::host
