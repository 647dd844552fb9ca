#include "host/registry/systemfacts.h"

#include "host/files/standardfolders.h"

#include <pwd.h>
#include <unistd.h>

#include <array>
#include <iterator>
#include <ranges>

namespace mox::host {

namespace {

using Root = RegistryFact::Root;

struct Folder {
    const char* name;
    /// Below the system's drive, or the user's folder on it.
    const char* path;
};

constexpr Folder userFolders[] = {
    {"AppData", "AppData/Roaming"},
    {"Desktop", "Desktop"},
    {"Local AppData", "AppData/Local"},
    {"My Music", "Music"},
    {"My Pictures", "Pictures"},
    {"My Video", "Videos"},
    {"Personal", "Documents"},
    {"Programs", "AppData/Roaming/Microsoft/Windows/Start Menu/Programs"},
    {"Start Menu", "AppData/Roaming/Microsoft/Windows/Start Menu"},
    {"Templates", "AppData/Roaming/Microsoft/Windows/Templates"},
};

constexpr Folder commonFolders[] = {
    {"Common AppData", "ProgramData"},
    {"Common Desktop", "Users/Public/Desktop"},
    {"Common Documents", "Users/Public/Documents"},
    {"Common Programs", "ProgramData/Microsoft/Windows/Start Menu/Programs"},
    {"Common Start Menu", "ProgramData/Microsoft/Windows/Start Menu"},
    {"Common Templates", "ProgramData/Microsoft/Windows/Templates"},
    {"CommonMusic", "Users/Public/Music"},
    {"CommonPictures", "Users/Public/Pictures"},
    {"CommonVideo", "Users/Public/Videos"},
};

std::filesystem::path systemDrive(const Files& files) {
    const auto drive = files.drives().find('C');
    return drive != files.drives().end() ? drive->second : std::filesystem::path();
}

/// The path on its drive of a folder of the system, empty if there is none such.
std::string drivePathOf(const Files& files, const std::filesystem::path& folder) {
    // The drive's first use makes the folders.
    std::string path = files.facts("C:\\Windows") ? files.toDrivePath(folder) : "";
    const std::optional<FileFacts> facts = path.empty() ? std::nullopt : files.facts(path);
    return facts && facts->folder ? path : "";
}

/// The real name that the system knows of the user, else the login name.
std::string ownerName() {
    passwd entry{};
    passwd* found = nullptr;
    std::array<char, 4096> buffer{};
    if (getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found) != 0 || !found) {
        return "";
    }
    // The field holds an office and telephone numbers as well.
    const std::string_view person = found->pw_gecos ? found->pw_gecos : "";
    const std::string_view name = person.substr(0, person.find(','));
    return name.empty() ? found->pw_name : std::string(name);
}

} // namespace

std::string productName(const WindowsVersion& version) {
    constexpr std::uint32_t lineOf95 = 1;
    constexpr std::uint32_t workstation = 1;
    struct Product {
        std::uint32_t major;
        std::uint32_t minor;
        const char* name;
        const char* server;
    };
    constexpr Product others[] = {
        {4, 0, "Microsoft Windows 95", ""}, {4, 10, "Microsoft Windows 98", ""}, {4, 90, "Microsoft Windows ME", ""}};
    constexpr Product products[] = {
        {3, 51, "Microsoft Windows NT", "Microsoft Windows NT"},
        {4, 0, "Microsoft Windows NT", "Microsoft Windows NT"},
        {5, 0, "Microsoft Windows 2000", "Microsoft Windows 2000"},
        {5, 1, "Microsoft Windows XP", "Microsoft Windows XP"},
        {5, 2, "Microsoft Windows XP", "Microsoft Windows Server 2003"},
        {6, 0, "Windows Vista", "Windows Server 2008"},
        {6, 1, "Windows 7", "Windows Server 2008 R2"},
        {6, 2, "Windows 8", "Windows Server 2012"},
        {6, 3, "Windows 8.1", "Windows Server 2012 R2"},
        {10, 0, "Windows 10", "Windows Server"},
    };
    const auto find = [&](const auto& list) -> std::string {
        for (const Product& product : list) {
            if (product.major == version.major && product.minor == version.minor) {
                return version.productType == workstation || version.platform == lineOf95 ? product.name : product.server;
            }
        }
        return "";
    };
    return version.platform == lineOf95 ? find(others) : find(products);
}

void addSystemFacts(FactList& facts, const WindowsVersion& version, const Files& files) {
    const std::filesystem::path drive = systemDrive(files);
    for (const char* path : {"SOFTWARE\\Microsoft\\Windows\\CurrentVersion", "SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion"}) {
        facts.in(Root::localMachine, path);
        facts.text("ProductName", productName(version));
        facts.text("CurrentVersion", std::to_string(version.major) + "." + std::to_string(version.minor));
        facts.text("CurrentBuild", std::to_string(version.build));
        facts.text("CurrentBuildNumber", std::to_string(version.build));
        facts.text("CSDVersion", version.serviceText);
        facts.text("RegisteredOwner", ownerName());
        facts.emptyText("RegisteredOrganization");
        facts.path("SystemRoot", drivePathOf(files, drive / "Windows"));
        facts.path("ProgramFilesDir", drivePathOf(files, drive / "Program Files"));
        facts.path("CommonFilesDir", drivePathOf(files, drive / "Program Files/Common Files"));
    }
}

void addShellFolders(FactList& facts, const Files& files) {
    constexpr const char* path = "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders";
    const std::filesystem::path drive = systemDrive(files);
    facts.in(Root::currentUser, path);
    facts.path("Fonts", drivePathOf(files, drive / "Windows/Fonts"));
    for (const Folder& folder : userFolders) {
        facts.path(folder.name, drivePathOf(files, drive / "Users" / nameOfUser() / folder.path));
    }
    facts.in(Root::localMachine, path);
    for (const Folder& folder : commonFolders) {
        facts.path(folder.name, drivePathOf(files, drive / folder.path));
    }
}

} // namespace mox::host
