#include "host/machine/machineconfig.h"

#include "host/icons/icontheme.h"

#include <array>
#include <cstdlib>
#include <pwd.h>
#include <string_view>
#include <unistd.h>

namespace mox::host {

namespace {

std::filesystem::path variable(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

std::filesystem::path homeOfUser() {
    if (const std::filesystem::path home = variable("HOME"); home.is_absolute()) {
        return home;
    }
    passwd entry{};
    passwd* found = nullptr;
    std::array<char, 4096> buffer{};
    return getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found) == 0 && found ? found->pw_dir : "";
}

std::filesystem::path homeOfMachine() {
    if (const std::filesystem::path home = variable("MOX_HOME"); !home.empty()) {
        return std::filesystem::absolute(home);
    }
    if (const std::filesystem::path data = variable("XDG_DATA_HOME"); data.is_absolute()) {
        return data / "mox";
    }
    const std::filesystem::path home = homeOfUser();
    return home.is_absolute() ? home / ".local/share/mox" : std::filesystem::path();
}

} // namespace

MachineConfig MachineConfig::fromEnvironment() {
    MachineConfig config;
    config.home = homeOfMachine();
    config.iconFolders = iconFoldersOfUser();
    config.iconTheme = iconThemeOfUser();
    return config;
}

} // namespace mox::host
